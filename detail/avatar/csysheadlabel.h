// One picture of the program among those to choose from.
#pragma once

#include <QLabel>

class CSysHeadLabel : public QLabel
{
    Q_OBJECT

public:
    static constexpr int Side = 52; // device-independent pixels

    // `name`: of the picture's file.
    explicit CSysHeadLabel(const QString &name, QWidget *parent = nullptr);

    const QString &name() const { return m_name; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_name;
};
