// Windows of which there is one per key, such as one card per contact.
#pragma once

#include <QHash>
#include <QPointer>
#include <QString>

// Window: a QWidget with present(). A window that is gone counts as absent, however
// it went.
template <class Window> class WindowRegistry
{
public:
    // Null when there is none.
    Window *find(const QString &key) const { return m_windows.value(key).data(); }

    // The window of the key, made by `make` when there is none; null when `make`
    // returned null.
    template <class Make> Window *findOrMake(const QString &key, Make make)
    {
        if (Window *window = find(key))
            return window;
        Window *made = make();
        if (made)
            m_windows.insert(key, made);
        return made;
    }

    // Forgets the window and returns it; null when there was none.
    Window *take(const QString &key) { return m_windows.take(key).data(); }

    int count() const
    {
        int living = 0;
        for (const QPointer<Window> &window : m_windows)
            living += window ? 1 : 0;
        return living;
    }

private:
    QHash<QString, QPointer<Window>> m_windows;
};
