// A library that is no plug-in.
extern "C" __attribute__((visibility("default"))) int unrelatedFunction();

int unrelatedFunction()
{
    return 42;
}
