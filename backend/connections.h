// The TLS connections of a server that are open: they stay open between requests, so
// that who stops the server has to end them.
#pragma once

#include <mutex>
#include <set>

struct ssl_st;
struct ssl_ctx_st;

class Connections
{
public:
    // Follows all connections of the context from now on; outlives them.
    void follow(ssl_ctx_st *context);
    // The other side sees each closed; who reads or writes it here fails.
    void closeAll();
    static void close(const ssl_st *connection);
    // Acknowledges what has arrived at once. A client that sends the head of a request
    // and its body in two packets holds the second back until then, 40 ms by default.
    static void acknowledge(const ssl_st *connection);

private:
    struct Entry;
    static void begun(const ssl_st *connection, int where, int result);
    static int slot();

    std::mutex m_mutex;
    std::set<int> m_sockets;
};
