#pragma once

#include <QTranslator>

namespace vk {

/// The toolkit's own words that a user of this program meets, in Italian. Nothing has to be installed for them.
class ItalianTexts : public QTranslator {
 public:
  using QTranslator::QTranslator;
  bool isEmpty() const override { return false; }
  QString translate(const char* context, const char* source, const char* disambiguation,
                    int n) const override;
};

}  // namespace vk
