#include "backend/connections.h"

#include "backend/socketcalls.h"

#include <openssl/ssl.h>

#include <memory>

// Goes with its connection, before the socket is closed and its number used again.
struct Connections::Entry
{
    Entry(Connections *follower, int number) : owner(follower), socket(number)
    {
        const std::lock_guard<std::mutex> lock(owner->m_mutex);
        owner->m_sockets.insert(socket);
    }
    ~Entry()
    {
        const std::lock_guard<std::mutex> lock(owner->m_mutex);
        owner->m_sockets.erase(socket);
    }
    static void release(void *, void *entry, CRYPTO_EX_DATA *, int, long, void *)
    {
        delete static_cast<Entry *>(entry);
    }

    Connections *owner;
    int socket;
};

int Connections::slot()
{
    static const int index = SSL_get_ex_new_index(0, nullptr, nullptr, nullptr, Entry::release);
    return index;
}

void Connections::begun(const SSL *connection, int where, int)
{
    if (!(where & SSL_CB_HANDSHAKE_START) || SSL_get_ex_data(connection, slot()))
        return;
    auto *owner = static_cast<Connections *>(SSL_CTX_get_app_data(SSL_get_SSL_CTX(connection)));
    auto entry = std::make_unique<Entry>(owner, SSL_get_fd(connection));
    if (SSL_set_ex_data(const_cast<SSL *>(connection), slot(), entry.get()))
        entry.release();
}

void Connections::follow(SSL_CTX *context)
{
    SSL_CTX_set_app_data(context, this);
    SSL_CTX_set_info_callback(context, begun);
}

void Connections::closeAll()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    for (const int socket : m_sockets)
        SocketCalls::shutDown(socket);
}

void Connections::close(const SSL *connection)
{
    SocketCalls::shutDown(SSL_get_fd(connection));
}

void Connections::acknowledge(const SSL *connection)
{
    SocketCalls::acknowledge(SSL_get_fd(connection));
}
