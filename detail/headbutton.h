// The round picture of a person, with the mark of the presence; a click shows the
// picture large.
#pragma once

#include "hostapi/rosterrecords.h"

#include <QAbstractButton>

class HeadButton : public QAbstractButton
{
    Q_OBJECT

public:
    static constexpr int Side = 64; // device-independent pixels

    explicit HeadButton(QWidget *parent = nullptr);

    void setPerson(const QString &jid, const QString &name);
    // `file`: a local picture, or empty for none; then there is nothing to click.
    void setPicture(const QString &file);
    const QString &picture() const { return m_file; }
    void setPresence(const PresenceData &presence);

    QSize sizeHint() const override { return QSize(Side, Side); }

protected:
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void retranslate();

    QString m_jid;
    QString m_name;
    QString m_file;
    PresenceData m_presence;
};
