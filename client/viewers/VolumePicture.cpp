#include "client/viewers/VolumePicture.h"

#include "platform/util/McModule.h"

namespace {

const McModule &pictureModule()
{
    static const McModule module("MovaraVolumePicture");
    return module;
}

} // namespace

std::unique_ptr<VolumePicture> VolumePicture::make()
{
    return pictureModule().make<VolumePicture>();
}

const std::string &VolumePicture::problem()
{
    return pictureModule().problem();
}
