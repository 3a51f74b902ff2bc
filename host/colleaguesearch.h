// Finds colleagues of the user by the organisation service: one search at a time, the
// last one that was wanted.
#pragma once

#include "host/windows/peoplemodel.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

class ServiceCall;

class ColleagueSearch : public QObject
{
    Q_OBJECT

public:
    static constexpr int MaximumHits = 50;

    // Only people of this company are found; jids have this domain.
    ColleagueSearch(const QString &companyCode, const QString &domain, QObject *parent = nullptr);

    // A little later, so that a word that is typed is one search. An empty text: none.
    void search(const QString &text);

signals:
    // Not sent when the services fail or the user may not read the organisation.
    void found(const QString &text, const QVector<PeopleModel::Person> &people);

private:
    void send();

    const QString m_companyCode, m_domain;
    QString m_text;
    QTimer m_typing;
    QPointer<ServiceCall> m_call;
};
