// Serves a dispatcher over HTTPS on 127.0.0.1.
#pragma once

#include <QString>

#include <memory>

class Dispatcher;
struct KeyPair;

class WebServer
{
public:
    WebServer();
    ~WebServer();

    // Takes connections from now on, into the queue until run(). `port` 0: any free
    // one. False with *problem set when it cannot.
    bool open(const KeyPair &certificate, int port, QString *problem);
    // Answers on threads of its own until stop().
    void run(const Dispatcher &dispatcher);
    // Ends all connections and waits for what runs.
    void stop();

    int port() const; // -1: not open

private:
    struct Private;
    std::unique_ptr<Private> d;
};
