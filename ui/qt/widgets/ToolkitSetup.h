#pragma once

class QApplication;

namespace vk {

/// Gives the toolkit the program's looks, and the C library its numbers with a decimal point back, which the
/// toolkit's start takes away under some locales. Called once, right after the application object is made.
void setUpToolkit(QApplication& toolkit);

}  // namespace vk
