// One operation of the service-number services: makes one request, ends in exactly one
// signal, never inside the call that started it, and is deleted after that.
//
//     auto *operation = new CHttpServiceNum(this);
//     connect(operation, &CHttpServiceNum::signal_notifySubServiceNum, this,
//             [=](const QString &code, const QString &, bool ok, const QString &error) { ... });
//     operation->subServiceNum(code);
//
// A request whose object is destroyed before was sent nevertheless. GUI thread only.
#pragma once

#include "hostapi/servicerecords.h"

#include <QList>
#include <QObject>
#include <QStringList>

#include <memory>

class QNetworkReply;
struct ServiceNumArguments;

class CHttpServiceNum : public QObject
{
    Q_OBJECT

public:
    // The error text of a subscription whose answer had no code, or never came.
    static constexpr char NoAnswer[] = "99999";

    explicit CHttpServiceNum(QObject *parent = nullptr);
    ~CHttpServiceNum() override;

    // By a part of the name; "" finds all.
    void searchServiceNum(const QString &name, const QString &version = QString(),
                          const QString &groupId = QString());
    void subServiceNum(const QString &code, const QString &groupId = QString());
    void cancelSubServiceNum(const QString &code, const QString &groupId = QString());
    // `version`: of the list that is held; with the same one the answer may be empty.
    void getMyServiceNum(const QString &version);
    void getServiceNumInfo(const QString &code, const QString &version);
    // `versions`: one for each code, in the same order.
    void getServiceNumInfoList(const QStringList &codes, const QStringList &versions);
    // The page of the number's messages, as it stands: to know whether there is one.
    void getServiceNumMessage(const QString &code);

    // Where that page is; empty when the service has no address.
    static QString historyAddress(const QString &code);

    // Of the list that a reply brought; valid in the slots of the signals.
    QString version() const;

signals:
    // What was searched for, and what was found.
    void signal_searchServiceNum(const QString &name, const QString &version,
                                 const QString &groupId, QList<CServiceNumData> &numbers, bool ok);
    // `errorCode` is "0" for success, else the service's code or NoAnswer.
    void signal_notifySubServiceNum(QString code, QString groupId, bool ok, QString errorCode);
    void signal_notifyCancelSubServiceNum(QString code, QString groupId, bool ok);
    // The user's numbers, or those asked for by their codes.
    void signal_notifyAddServiceNum(const QList<CServiceNumData> &numbers);
    // A record without a code: nothing has changed since the version asked with.
    void signal_notifyUpdateServiceNum(QString code, const CServiceNumData &number);
    void signal_serviceNumMessage(const QString &code, bool ok);
    // In the place of the two signals that cannot tell a failure.
    void signal_failed();

private slots:
    void slot_replyTimeOut();
    void slot_searchServiceNum(QNetworkReply *reply);
    void slot_subServiceNum(QNetworkReply *reply);
    void slot_cancelSubServiceNum(QNetworkReply *reply);
    void slot_getMyServiceNum(QNetworkReply *reply);
    void slot_getServiceNumInfoFinished(QNetworkReply *reply);
    void slot_getServiceNumInfoListFinished(QNetworkReply *reply);
    void slot_getServiceNumMessageFinished(QNetworkReply *reply);

private:
    struct Service;
    struct Private;
    void start(const Service &service, const ServiceNumArguments &arguments);
    void finish(const Service &service, QNetworkReply *reply);
    std::unique_ptr<Private> d;
};
