// The fields of a form, from a request's body or the query of its address.
#pragma once

#include <QString>

#include <map>
#include <stdexcept>
#include <string>

// A required field is missing or a field is malformed. Who handles requests lets it
// pass; it is answered with the code for an illegal value.
class IllegalField : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

class FormBody
{
public:
    FormBody() = default;
    // name=value&..., percent-encoded UTF-8; "+" is a blank. A broken escape or text
    // that is not UTF-8 makes that field, and only it, malformed. Of two fields of
    // one name the first counts.
    static FormBody parse(const std::string &encoded);

    void set(const std::string &name, const std::string &value);

    bool has(const char *name) const;
    // Absent: empty. Throws IllegalField when it is malformed.
    QString text(const char *name) const;
    // Throws IllegalField when it is absent, empty or malformed.
    QString required(const char *name) const;
    // A decimal number within the range, ends included; throws otherwise.
    qint64 number(const char *name, qint64 least, qint64 most) const;
    // The same, but absent is `otherwise`.
    qint64 number(const char *name, qint64 least, qint64 most, qint64 otherwise) const;
    // "1"/"0" or "true"/"false"; throws otherwise.
    bool flag(const char *name) const;

private:
    struct Field
    {
        QString text;
        bool isSound = true;
    };
    static Field decoded(const std::string &encoded);
    static Field checked(const std::string &bytes);

    std::map<std::string, Field> m_fields;
};
