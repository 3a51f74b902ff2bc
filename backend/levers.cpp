#include "backend/levers.h"

#include <json/value.h>

#include <algorithm>
#include <chrono>

using std::chrono::milliseconds;
using std::chrono::system_clock;

void Levers::setOn(bool on)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_isOn = on;
    m_isStopped = false;
}

void Levers::record(SeenRequest request)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_isOn)
        return;
    if (request.body.size() > MaximumBody)
        request.body.resize(MaximumBody);
    const auto now = system_clock::now().time_since_epoch();
    m_log.push_back({std::move(request), std::chrono::duration_cast<milliseconds>(now).count()});
    if (m_log.size() > MaximumLog)
        m_log.pop_front();
}

std::optional<Rule> Levers::take(const std::string &path)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto rule = std::find_if(m_rules.begin(), m_rules.end(), [&](const Rule &candidate) {
        return candidate.path == "*" || candidate.path == path;
    });
    if (rule == m_rules.end())
        return std::nullopt;
    const Rule taken = *rule;
    if (rule->times > 0 && --rule->times == 0)
        m_rules.erase(rule);
    return taken;
}

void Levers::pause(int duration)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_stopping.wait_for(lock, milliseconds(duration), [this] { return m_isStopped; });
}

void Levers::add(Rule rule)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (rule.times != 0)
        m_rules.push_back(std::move(rule));
}

void Levers::reset()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_rules.clear();
    m_log.clear();
}

void Levers::stop()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_isStopped = true;
    m_stopping.notify_all();
}

Json::Value Levers::log() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    Json::Value requests(Json::arrayValue);
    for (const Entry &entry : m_log) {
        Json::Value seen(Json::objectValue);
        seen["method"] = entry.request.method;
        seen["path"] = entry.request.path;
        seen["query"] = entry.request.query;
        seen["body"] = entry.request.body;
        seen["time"] = Json::Int64(entry.time);
        seen["headers"] = Json::Value(Json::objectValue);
        for (const auto &[name, value] : entry.request.headers)
            seen["headers"][name] = value;
        for (const SeenRequest::Part &part : entry.request.parts) {
            Json::Value file(Json::objectValue);
            file["name"] = part.name;
            file["fileName"] = part.fileName;
            file["size"] = Json::UInt64(part.size);
            if (part.fileName.empty())
                file["text"] = part.text;
            seen["parts"].append(file);
        }
        requests.append(seen);
    }
    Json::Value root(Json::objectValue);
    root["requests"] = requests;
    return root;
}
