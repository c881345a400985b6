#include "client/viewers/SliceCutter.h"

#include "platform/util/McModule.h"

namespace {

const McModule &cutterModule()
{
    static const McModule module("MovaraSliceCutter");
    return module;
}

} // namespace

std::unique_ptr<SliceCutter> SliceCutter::make()
{
    return cutterModule().make<SliceCutter>();
}

const std::string &SliceCutter::problem()
{
    return cutterModule().problem();
}
