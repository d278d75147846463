// The item browser over lists of items as a host in a script hands them over.
#include "sales/frmBrowseItems.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>
#include <vector>

#include "sales/rounding.h"
#include "tests/component/automation/options_fixture.h"

namespace tillora::automation {
namespace {

using testing::Call;
using testing::FakeHost;
using testing::nullVariant;
using testing::ScriptedObject;
using win32::ComPtr;
using win32::Variant;

using Property = std::pair<const char16_t*, std::function<Variant()>>;

class ItemBrowserTest : public OptionsObjectTest {
 protected:
  ItemBrowserTest() {
    host.accounts = {
        {{u"Name", Text(u"Income")}, {u"Inactive", false}, {u"AccountType", Text(u"INC")}},
        {{u"Name", Text(u"4200")}, {u"Inactive", false}, {u"AccountType", Text(u"INC")}}};
    for (const char16_t* name : {u"MoveFirst", u"MoveNext"}) {
      const bool first = Text(name) == u"MoveFirst";
      list->add(name, [this, first](const Call&) {
        at = first ? 0 : at + 1;
        return Variant();
      });
    }
    list->add(u"EOF", [this](const Call&) { return Variant(at >= items.size()); });
    list->add(u"Current", [this](const Call&) {
      if (at == failingItem) throw FakeHost::failure();
      return Variant(items.at(at).get());
    });
    automationHost.database->add(u"ItemList", [this](const Call&) { return Variant(list.get()); });
    giveHost();
  }
  ~ItemBrowserTest() override {
    object->putref_DBJetObject(nullptr);
    EXPECT_EQ(list->references(), 1U);
  }

  /// Properties that are not given are empty texts.
  void addItem(const std::vector<Property>& properties) {
    const auto item = ScriptedObject::make();
    for (const char16_t* name :
         {u"ItemType", u"ProductNumber", u"Group", u"Name", u"Description", u"Account"}) {
      item->add(name, [](const Call&) { return Variant(u""); });
    }
    for (const auto& [name, value] : properties) {
      item->add(name, [value = value](const Call&) { return value(); });
    }
    items.push_back(item);
  }
  void addCharge(const char16_t* name, const std::vector<Property>& properties) {
    std::vector<Property> all = {{u"ItemType", [] { return Variant(u"OTHC"); }},
                                 {u"Name", [name] { return Variant(name); }},
                                 {u"Account", [] { return Variant(u"Income"); }}};
    all.insert(all.end(), properties.begin(), properties.end());
    addItem(all);
  }
  /// The rows that the browser of rounding items shows.
  std::vector<std::vector<Text>> roundingItems() {
    std::vector<std::vector<Text>> rows;
    whileOpen([&](frmOptions& dialog) {
      desk.user().clickTab(dialog.tabOptions, static_cast<int>(TabPage::rounding));
      desk.whenShown([&](ui::Form& form) {
        for (const auto& row : dynamic_cast<frmBrowseItems&>(form).ltvItems.rows()) {
          std::vector<Text> texts;
          for (std::size_t column = 0; column < 4; ++column) texts.emplace_back(row.texts[column]);
          rows.push_back(texts);
        }
      });
      desk.user().click(dialog.tabs().rounding.cmdBrowse);
    });
    client->call(u"ShowOptions");
    return rows;
  }

  const ComPtr<ScriptedObject> list = ScriptedObject::make();
  std::vector<ComPtr<ScriptedObject>> items;
  std::size_t at = 1000;  // beyond the last item until the list is moved
  std::size_t failingItem = 1000;
};

TEST_F(ItemBrowserTest, APropertyThatIsNotATextIsShownAsText) {
  addCharge(u"A", {{u"Group", nullVariant}, {u"Description", [] { return Variant(); }}});
  addCharge(u"B", {{u"Group", [] { return Variant(std::int32_t{100}); }},
                   {u"Description", [] { return Variant(25.0); }},
                   {u"Account", [] { return Variant(std::int16_t{4200}); }}});
  EXPECT_EQ(roundingItems(), (std::vector<std::vector<Text>>{{u"", u"A", u"", u"Income"},
                                                             {u"100", u"B", u"25", u"4200"}}));
}

TEST_F(ItemBrowserTest, AnItemWithoutATypeOrAnAccountIsNotOffered) {
  addCharge(u"A", {{u"Account", nullVariant}});
  addCharge(u"B", {{u"Account", [] { return Variant(); }}});
  addCharge(u"C", {{u"ItemType", nullVariant}});
  addCharge(u"D", {{u"ItemType", [] { return Variant(std::int32_t{1}); }}});
  addCharge(u"E", {});
  EXPECT_EQ(roundingItems(), (std::vector<std::vector<Text>>{{u"", u"E", u"", u"Income"}}));
}

TEST_F(ItemBrowserTest, AListHandedOutTwiceIsWalkedFromItsFirstItemEachTime) {
  addCharge(u"A", {});
  addCharge(u"B", {});
  EXPECT_EQ(roundingItems().size(), 2U);
  EXPECT_EQ(at, 2U);
  EXPECT_EQ(roundingItems().size(), 2U);
}

TEST_F(ItemBrowserTest, AFailureAtALaterItemIsRaisedAsItCame) {
  for (const char16_t* name : {u"A", u"B", u"C"}) addCharge(name, {});
  for (failingItem = 0; failingItem < items.size(); ++failingItem) {
    FakeHost::expectFailure([&] { roundingItems(); });
    EXPECT_EQ(at, failingItem);
    desk.dropSteps();
  }
}

}  // namespace
}  // namespace tillora::automation
