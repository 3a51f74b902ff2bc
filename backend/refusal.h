// A rule says no. The transaction is given up; the code is the answer.
#pragma once

#include <exception>

class Refusal : public std::exception
{
public:
    explicit Refusal(int replyCode) : code(replyCode) {}
    const char *what() const noexcept override { return "refused"; }

    const int code;
};
