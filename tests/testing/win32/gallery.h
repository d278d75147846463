#pragma once

#include "ui/form.h"
#include "ui/label.h"
#include "ui/lists.h"
#include "ui/tab_strip.h"
#include "ui/text_box.h"
#include "ui/up_down.h"

namespace tillora::testing {

/// A form with every kind of control: a tab strip with two pages and three buttons below.
class Gallery final : public ui::Form {
 public:
  explicit Gallery(ui::Screen& screen);

  ui::TabStrip& tabs;
  ui::Frame& firstPage;
  ui::Label& nameLabel;
  ui::TextBox& name;
  ui::Label& shadowedLabel;
  ui::Label& shadow;
  ui::TextBox& notes;
  ui::TextBox& secret;
  ui::CheckBox& check;
  ui::Frame& group;
  ui::OptionButton& first;
  ui::OptionButton& second;
  ui::ComboBox& combo;
  ui::TextBox& amount;
  ui::UpDown& upDown;
  ui::Picture& picture;
  ui::Frame& secondPage;
  const ui::ImageList images{{ui::PictureId::active, ui::PictureId::inactive}};
  ui::ListView& list;
  ui::CheckListBox& checks;
  ui::Picture& pill;
  ui::CommandButton& ok;
  ui::CommandButton& cancel;
  ui::CommandButton& apply;

  /// What onQueryUnload answers.
  bool stays = false;

 protected:
  void onLoad() override;
  void onQueryUnload(bool& cancel, ui::UnloadMode mode) override;
};

}  // namespace tillora::testing
