#include "ui/qt/ports/QtOutput.h"

#include <algorithm>

namespace vk {

QtOutput::QtOutput(const OutputServices& services, EventPump& pump) : services_(services), pump_(pump) {
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
  openings_[present_] = ++opened_;
  form().OutShow(request);
  pump_.repaint();
  pump_.awaitShowing(form());
}

void QtOutput::print(const Cp437Text& text) {
  model().print(text);
  // Not only by `refresh`: a box that follows is not to stand before an old picture.
  form().changed();
}

void QtOutput::CharFrame(int row1, int col1, int row2, int col2, int style, const Cp437Text& title) {
  model().CharFrame(row1, col1, row2, col2, style, title);
  form().changed();
}

void QtOutput::closeSince(int opened) {
  for (const auto& form : forms_) {
    if (openings_[form.get()] > opened) form->FrmOut_Exit();
  }
}

void QtOutput::refresh() {
  pump_.repaint();
}

void QtOutput::hideAll() {
  for (const auto& form : forms_) form->hide();
}

}  // namespace vk
