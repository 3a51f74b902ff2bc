#include "backend/routes/rulecall.h"

#include "backend/context.h"
#include "backend/refusal.h"

Reply RuleCall::reading(BackEndContext &context, const Work &work)
{
    try {
        Transaction transaction(context.database);
        return work(transaction);
    } catch (const Refusal &refusal) {
        return Reply::code(refusal.code);
    }
}

Reply RuleCall::change(BackEndContext &context, const Work &work)
{
    return reading(context, [&](Transaction &transaction) {
        Reply reply = work(transaction);
        transaction.commit();
        context.bell.ring();
        return reply;
    });
}
