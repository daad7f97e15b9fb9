#pragma once

namespace vk {

/// Makes assistive tools take every window of the kind of dialogs for one, whatever widget it is made of.
void installDialogRole();

}  // namespace vk
