// The pictures that come with the program, in rows of six. A click chooses one, Enter
// and the space bar the current one.
#pragma once

#include <QPixmap>
#include <QTableWidget>

class SysAvatarTable : public QTableWidget
{
    Q_OBJECT

public:
    static constexpr int Columns = 6;
    static constexpr int CellSide = 60; // device-independent pixels

    explicit SysAvatarTable(QWidget *parent = nullptr);

    // Shows these, by their files' names.
    void setNames(const QStringList &names);
    // Marks one as chosen without a signal; a name that is not there marks none.
    void setChosen(const QString &name);

signals:
    // `path` as for loadPicture(); the pixmap is the whole picture.
    void sysAvatar_clicked(QString path, QPixmap px);

protected:
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void choose(const QModelIndex &index);
    QString nameAt(const QModelIndex &index) const;
};
