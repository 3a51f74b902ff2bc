// A library that is no plug-in.
#include <QtGlobal>

extern "C" Q_DECL_EXPORT int unrelatedFunction();

int unrelatedFunction()
{
    return 42;
}
