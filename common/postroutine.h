// Calls a function when the application object goes: what must be finished before the
// process takes itself apart. Where the code that holds the function is unloaded earlier,
// it is forgotten, so that nobody calls what is no longer there.
//
// Kept as a static variable:
//
//     static const PostRoutine drain([] { pool().waitForDone(); });
#pragma once

#include <QCoreApplication>

class PostRoutine
{
public:
    explicit PostRoutine(QtCleanUpFunction function) : m_function(function)
    {
        qAddPostRoutine(m_function);
    }
    ~PostRoutine() { qRemovePostRoutine(m_function); }
    PostRoutine(const PostRoutine &) = delete;
    PostRoutine &operator=(const PostRoutine &) = delete;

private:
    const QtCleanUpFunction m_function;
};
