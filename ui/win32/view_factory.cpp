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
std::unique_ptr<ControlView> make(DialogWindow& dialog, Control& control) {
  return std::make_unique<View>(dialog, static_cast<T&>(control));
}

}  // namespace

std::unique_ptr<ControlView> makeView(DialogWindow& dialog, Control& control) {
  switch (control.kind()) {
    case Kind::frame:
      return make<FrameView, Frame>(dialog, control);
    case Kind::label:
      return make<LabelView, Label>(dialog, control);
    case Kind::textBox:
      return make<EditView, TextBox>(dialog, control);
    case Kind::checkBox:
      return make<CheckBoxView, CheckBox>(dialog, control);
    case Kind::optionButton:
      return make<OptionButtonView, OptionButton>(dialog, control);
    case Kind::commandButton:
      return make<CommandButtonView, CommandButton>(dialog, control);
    case Kind::comboBox:
      return make<ComboView, ComboBox>(dialog, control);
    case Kind::checkListBox:
      return make<CheckListView, CheckListBox>(dialog, control);
    case Kind::listView:
      return make<ReportView, ListView>(dialog, control);
    case Kind::upDown:
      return make<UpDownView, UpDown>(dialog, control);
    case Kind::tabStrip:
      return make<TabView, TabStrip>(dialog, control);
    case Kind::picture:
      return make<PictureView, Picture>(dialog, control);
    case Kind::form:
      break;
  }
  throw std::logic_error("a form inside a form");
}

}  // namespace tillora::ui::win32
