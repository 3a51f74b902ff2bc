// How a service works on the database: in one transaction, with a refusal as its code.
#pragma once

#include "backend/reply.h"

#include <functional>

struct BackEndContext;
class Transaction;

namespace RuleCall {
using Work = std::function<Reply(Transaction &transaction)>;

// What the work does is undone.
Reply reading(BackEndContext &context, const Work &work);
// What the work does is kept, and those who wait for events are woken.
Reply change(BackEndContext &context, const Work &work);
} // namespace RuleCall

inline Reply done()
{
    return Reply::code(ReplyCode::Done);
}
