#pragma once

#include <QImage>
#include <string>

namespace vk {

/// An image as a file of the PNG format, with its natural size in it.
std::string pngOf(QImage image, double dotsPerInch);

}  // namespace vk
