// The customer-service channels and service numbers of the embedded core. They
// follow from the sample company; what was changed since is kept in the file.
#pragma once

#include "hostapi/servicerecords.h"

#include <QList>
#include <QStringList>

class CoreStore;

class ChannelBook
{
public:
    // The store must outlive the book.
    explicit ChannelBook(CoreStore *store);

    void load();

    QList<CSChannelData> channels() const; // without those that were removed
    bool find(const QString &id, CSChannelData *out) const;
    QString removedOne() const; // empty: there is none

    // False for an unknown id, or when nothing changes or could be stored.
    bool remove(const QString &id);
    bool restore(const QString &id);
    bool setPicture(const QString &id, const QString &photoName);

    // By code, or by jid.
    static bool serviceNumber(const QString &codeOrJid, CServiceNumData *out);
    static QString serviceNumberJid(const QString &code);

private:
    int placeOf(const QString &id) const;
    bool storeRemoved();

    CoreStore *m_store;
    QList<CSChannelData> m_channels;
    QStringList m_removed;
};
