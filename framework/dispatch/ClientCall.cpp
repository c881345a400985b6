#include "framework/dispatch/ClientCall.h"

#include "platform/util/McLogFile.h"

namespace {

int failed = 0;

} // namespace

int ClientCall::numFailed()
{
    return failed;
}

void ClientCall::report(const char *what, const char *reason)
{
    ++failed;
    McLogFile::warnf("%s has thrown an exception and was left out: %s", what,
        reason == nullptr ? "not a standard exception" : reason);
}
