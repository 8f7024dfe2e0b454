#pragma once

#include <string>

class QImage;

namespace Tools::Qt
{

/// Writes an image in the format that the name's suffix tells. The file appears when it is
/// complete: after a failure what stood under that name before is untouched.
/// \return whether the file was written
bool saveImage(const QImage& image, const std::string& name);

} // namespace Tools::Qt
