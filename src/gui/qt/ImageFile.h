#pragma once

#include <string>

class QImage;

namespace Tools::Qt
{

/// Writes an image in the format of the name's suffix. The file gets its name only when it is
/// complete: after a failure an earlier file of that name is unchanged. Only if no file
/// can be created in the folder is the earlier file overwritten in place; it is lost if the disk
/// fails then. A pipe or a device is written to.
/// \return why it was not written; empty if it was
std::string saveImage(const QImage& image, const std::string& name);

} // namespace Tools::Qt
