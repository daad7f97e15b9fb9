#pragma once

#include <functional>
#include <string>

namespace vk {

/// The modal window in which a table of another program becomes a data file.
class ImportForm {
 public:
  virtual ~ImportForm() = default;

  /// Shows what was found out about a file, named `name` and with these bytes, and lets the user overrule it until he
  /// gives up, or `save` takes the text of the data file: where that gives false, the window stays. What `save` throws
  /// closes the window and is thrown.
  virtual void show(const std::string& name, std::string bytes,
                    const std::function<bool(const std::string& text)>& save) = 0;
};

}  // namespace vk
