// What tests use to script the answers and to see the requests. Nothing is kept and
// nothing is scripted unless the levers are on. All functions may be called from any
// thread.
#pragma once

#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Json {
class Value;
}

// Credentials included: tests compare them. It stays in memory.
struct SeenRequest
{
    std::string method, path, query, body;
    std::vector<std::pair<std::string, std::string>> headers;
    struct Part
    {
        std::string name, fileName;
        size_t size = 0;
        std::string text; // of a part that is no file
    };
    std::vector<Part> parts; // of a multipart body, which has no `body`
};

// How the next requests to a path are answered.
struct Rule
{
    std::string path; // "*": every path
    int status = 0;   // 0: the service's own
    int delayMs = 0;
    std::optional<std::string> body; // none: the service's own, unless there is a status
    std::vector<std::pair<std::string, std::string>> headers; // added to the answer
    int times = -1;                                           // how often; -1: until a reset
    bool drop = false; // closes the connection without an answer

    // Whether the service is not asked at all.
    bool replacesService() const { return drop || status != 0 || body.has_value(); }
};

class Levers
{
public:
    static constexpr size_t MaximumLog = 5000;        // requests; the oldest go first
    static constexpr size_t MaximumBody = 128 * 1024; // bytes kept of a body

    void setOn(bool on);

    void record(SeenRequest request);
    // The first rule for the path that has turns left, after using up one of them.
    std::optional<Rule> take(const std::string &path);
    // Returns early when the back end stops.
    void pause(int milliseconds);

    void add(Rule rule);
    void reset();
    Json::Value log() const;
    void stop();

private:
    struct Entry
    {
        SeenRequest request;
        long long time; // ms since the epoch
    };
    mutable std::mutex m_mutex;
    std::condition_variable m_stopping;
    std::deque<Entry> m_log;
    std::deque<Rule> m_rules;
    bool m_isOn = false;
    bool m_isStopped = false;
};
