// The rows of a profile: a caption and a value each.
#pragma once

#include "hostapi/rosterrecords.h"

#include <QHash>
#include <QVector>
#include <QWidget>

class ValueLabel;
class QHBoxLayout;
class QLabel;
class SkinButton;

class DetailRows : public QWidget
{
    Q_OBJECT

public:
    explicit DetailRows(QWidget *parent = nullptr);

    // An empty value shows "---", or "…" while `complete` is false: it may yet come.
    void fill(const VcardInfo &profile, bool complete);
    void showRemark(bool show); // shown at first
    void setRemark(const QString &remark);
    // Only a contact's remark can be edited, and only while connected.
    void setRemarkEditable(bool isContact, bool connected);

    ValueLabel *value(const char *name) const; // by object name; null: no such row

signals:
    void remarkClicked(); // "btnSetName"
    void leaderClicked(const QString &jid);

protected:
    void changeEvent(QEvent *event) override;

private:
    struct Row
    {
        QLabel *caption;
        ValueLabel *value;
        const char *key;
    };
    void addRow(int index);
    void addRemarkButton(ValueLabel *remark, QHBoxLayout *layout);
    void setValue(const char *name, const QString &value, bool complete);
    void retranslate();

    QVector<Row> m_rows;
    SkinButton *m_setName;
    QString m_leaderJid;
};
