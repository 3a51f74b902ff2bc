// The language of everything in the process, changed while it runs.
#pragma once

#include <QObject>
#include <QString>

#include <memory>
#include <vector>

class QTranslator;

class HostLanguage : public QObject
{
    Q_OBJECT

public:
    explicit HostLanguage(QObject *parent = nullptr);
    ~HostLanguage() override;

    // "zh_CN" or "en". Installs every NAME_<language>.qm of the translation
    // folders; widgets get a LanguageChange event. Files that are missing leave
    // the keys as they stand.
    void apply(const QString &language);
    QString current() const { return m_current; }

    // The language that fits the system: "zh_CN" for Chinese, else "en".
    static QString systemLanguage();

private:
    void install(const QString &folder, const QString &pattern);

    std::vector<std::unique_ptr<QTranslator>> m_translators;
    QString m_current;
};
