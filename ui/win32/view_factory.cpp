#include "ui/win32/view_factory.h"

#include <stdexcept>

#include "ui/win32/button_views.h"
#include "ui/win32/check_list_view.h"
#include "ui/win32/combo_view.h"
#include "ui/win32/edit_view.h"
#include "ui/win32/frame_view.h"
#include "ui/win32/label_views.h"
#include "ui/win32/report_view.h"
#include "ui/win32/tab_view.h"
#include "ui/win32/up_down_view.h"

namespace tillora::ui::win32 {
namespace {

template <class View, class T>
std::unique_ptr<ControlView> make(FormWindow& formWindow, Control& control) {
  return std::make_unique<View>(formWindow, static_cast<T&>(control));
}

}  // namespace

std::unique_ptr<ControlView> makeView(FormWindow& formWindow, Control& control) {
  switch (control.kind()) {
    case Kind::frame:
      return make<FrameView, Frame>(formWindow, control);
    case Kind::label:
      return make<LabelView, Label>(formWindow, control);
    case Kind::textBox:
      return make<EditView, TextBox>(formWindow, control);
    case Kind::checkBox:
      return make<CheckBoxView, CheckBox>(formWindow, control);
    case Kind::optionButton:
      return make<OptionButtonView, OptionButton>(formWindow, control);
    case Kind::commandButton:
      return make<CommandButtonView, CommandButton>(formWindow, control);
    case Kind::comboBox:
      return make<ComboView, ComboBox>(formWindow, control);
    case Kind::checkListBox:
      return make<CheckListView, CheckListBox>(formWindow, control);
    case Kind::listView:
      return make<ReportView, ListView>(formWindow, control);
    case Kind::upDown:
      return make<UpDownView, UpDown>(formWindow, control);
    case Kind::tabStrip:
      return make<TabView, TabStrip>(formWindow, control);
    case Kind::picture:
      return make<PictureView, Picture>(formWindow, control);
    case Kind::form:
      break;
  }
  throw std::logic_error("a form inside a form");
}

}  // namespace tillora::ui::win32
