#include "ui/qt/QtOutput.h"

#include <algorithm>

namespace vk {

QtOutput::QtOutput(const OutputServices& services, Breath& breath) : services_(services), breath_(breath) {
  takeFreeForm();
}

void QtOutput::takeFreeForm() {
  const auto free =
      std::find_if(forms_.begin(), forms_.end(), [](const auto& f) { return !f->model().isOpen(); });
  present_ =
      free != forms_.end() ? free->get() : forms_.emplace_back(std::make_unique<FrmOut>(services_)).get();
}

void QtOutput::OutShow(const OutputRequest& request) {
  if (request.beside && model().isOpen()) takeFreeForm();
  form().OutShow(request);
  breath_.take();
}

void QtOutput::refresh() {
  form().changed();
  breath_.take();
}

void QtOutput::hideAll() {
  for (const auto& form : forms_) form->hide();
}

}  // namespace vk
