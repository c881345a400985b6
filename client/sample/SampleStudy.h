#pragma once

#include "platform/util/McFilename.h"
#include "platform/util/McVec3d.h"

#include <string>

class McProgressInterface;

/// Two made-up patients for trying the workstation out, as DICOM files: one with a CT of the trunk
/// (two reconstructions, and one after contrast agent at five times), one with an MR of the head in
/// two planes. The same bytes on every run.
class SampleStudy
{
public:
    /// What can be measured in the CT: a sphere of 200 HU and a cube of 300 HU. Patient coordinates
    /// and lengths in mm.
    static constexpr McVec3d sphereCenter{-100, -40, -118};
    static constexpr double sphereDiameter = 40;
    static constexpr McVec3d cubeCenter{70, -50, -112};
    static constexpr double cubeEdge = 30;

    /// Writes all files into @p folder, which is made if it is not there; files of an earlier run
    /// are replaced. Any thread. @param progress told what is done, may interrupt; may be null.
    /// @return why it failed; empty when everything was written.
    [[nodiscard]] static std::string write(
        const McFilename &folder, McProgressInterface *progress = nullptr);
    /// Number of files that write() makes.
    [[nodiscard]] static int numFiles();
};
