#include "backend/call.h"

#include <cstring>

const UploadedPart *Call::part(const char *name) const
{
    for (const UploadedPart &part : parts) {
        if (part.name == name)
            return &part;
    }
    return nullptr;
}

std::string Call::cookie(const char *name) const
{
    const size_t length = std::strlen(name);
    for (size_t begin = 0; begin < cookies.size();) {
        const size_t end = std::min(cookies.find(';', begin), cookies.size());
        begin = std::min(cookies.find_first_not_of(' ', begin), end);
        if (end - begin > length && cookies.compare(begin, length, name) == 0 &&
            cookies[begin + length] == '=')
            return cookies.substr(begin + length + 1, end - begin - length - 1);
        begin = end + 1;
    }
    return {};
}

void Services::post(const std::string &path, Access access, Handler handler)
{
    m_services["POST " + path] = {access, std::move(handler)};
}

void Services::get(const std::string &path, Access access, Handler handler)
{
    m_services["GET " + path] = {access, std::move(handler)};
}

const Services::Service *Services::find(const std::string &method, const std::string &path) const
{
    const auto found = m_services.find(method + ' ' + path);
    return found == m_services.end() ? nullptr : &found->second;
}
