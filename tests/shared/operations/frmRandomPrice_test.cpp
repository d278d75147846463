#include "operations/frmRandomPrice.h"

#include <limits>
#include <set>

#include "operations/clsRandomPrice.h"
#include "tests/testing/function_ref.h"
#include "tests/testing/options_test.h"

namespace tillora::testing {
namespace {

using ui::Key;

class FrmRandomPriceTest : public OptionsTest {
 protected:
  FrmRandomPriceTest() {
    editor.Prefix = 20;
    editor.FormatID = 1;
    editor.OptionBits = 3;
    editor.UOMUnitCaption = u"kg";
    editor.UOMPriceUnitCaption = u"/kg";
    editor.FormatDescriptions = {u""};
    for (const BarcodeLayout& layout : kBarcodeLayouts) {
      editor.FormatDescriptions.emplace_back(layout.description);
    }
  }
  /// Shows the dialog; `act` is what the person does in it.
  void show(const FunctionRef<void()>& act) {
    desk->whenShown([&](ui::Form&) { act(); });
    editor.showModal();
  }
  void accept(const FunctionRef<void()>& act) {
    show([&] {
      act();
      user.click(editor.cmdCommand[frmRandomPrice::ok]);
    });
    EXPECT_FALSE(editor.Cancelled());
  }
  ui::TextBox& box(int index) { return editor.txtRandomPrice[index]; }
  ui::CheckBox& check(int index) { return editor.chkRandomPrice[index]; }
  const Text& example() { return box(frmRandomPrice::example).text(); }
  void expectCaptionsEnabled(bool enabled) {
    for (const int i : {frmRandomPrice::unitCaption, frmRandomPrice::priceUnitCaption}) {
      EXPECT_EQ(box(i).enabled(), enabled);
    }
    for (const int i : {frmRandomPrice::ofUnitCaption, frmRandomPrice::ofPriceUnitCaption}) {
      EXPECT_EQ(editor.lblLabel[i].enabled(), enabled);
    }
    for (const int i :
         {frmRandomPrice::shadowOfUnitCaption, frmRandomPrice::shadowOfPriceUnitCaption}) {
      EXPECT_EQ(editor.lblLabel[i].visible(), !enabled);
    }
  }

  frmRandomPrice editor{desk->screen()};
};

TEST_F(FrmRandomPriceTest, ShowsWhatTheCallerHasSet) {
  editor.Prefix = 2;
  editor.FormatID = 5;
  editor.Inactive = true;
  editor.OptionBits = 2;
  editor.UOMUnitCaption = u"litre";
  editor.UOMPriceUnitCaption = u" per litre ";
  show([&] {
    EXPECT_EQ(box(0).text(), u"02");
    EXPECT_EQ(editor.cboRandomPrice.listIndex(), 4);
    EXPECT_EQ(box(1).text(), u"0211112233334");
    EXPECT_TRUE(check(0).value());
    EXPECT_FALSE(check(1).value());
    EXPECT_TRUE(check(2).value());
    EXPECT_EQ(box(2).text(), u"litre");
    EXPECT_EQ(box(3).text(), u" per litre ");
    EXPECT_FALSE(editor.Cancelled());
  });
}

TEST_F(FrmRandomPriceTest, ItsTexts) {
  show([&] {
    EXPECT_EQ(editor.caption(), u"Random Price Barcode Format");
    const auto& label = editor.lblLabel;
    EXPECT_EQ(label[frmRandomPrice::ofPrefix].caption(), u"Prefix");
    EXPECT_EQ(label[frmRandomPrice::ofFormat].caption(), u"&Barcode Format");
    EXPECT_EQ(label[frmRandomPrice::ofExample].caption(), u"Example");
    EXPECT_EQ(label[3].caption(),
              u"The first two numbers are the Prefix, then\r\n1 = Product Number, 2 = Price Check "
              u"Digit,\r\n3 = Price, 4 = Barcode Check Digit");
    EXPECT_EQ(label[frmRandomPrice::ofUnitCaption].caption(), u"C&aption for Unit");
    EXPECT_EQ(label[frmRandomPrice::ofPriceUnitCaption].caption(), u"Cap&tion for Price per Unit");
    EXPECT_EQ(check(0).caption(), u"&Random price barcodes with this Prefix are inactive");
    EXPECT_EQ(check(1).caption(), u"&Price includes tax");
    EXPECT_EQ(check(2).caption(), u"Calculate &Unit of Measure");
    const auto& command = editor.cmdCommand;
    EXPECT_EQ(command[0].caption(), u"OK");
    EXPECT_EQ(command[0].toolTip(), u"Accept the changes and close this window");
    EXPECT_TRUE(command[0].isDefault());
    EXPECT_EQ(command[1].caption(), u"&Cancel");
    EXPECT_EQ(command[1].toolTip(), u"Discard changes and close this window");
    EXPECT_TRUE(command[1].isCancel());
  });
}

TEST_F(FrmRandomPriceTest, OffersTheFiveFormatsEachWithItsExample) {
  const std::vector<std::pair<Text, Text>> formats = {
      {u"6 Product; No Price Check Digit; 4 Price; 1 Check Digit", u"2011111133334"},
      {u"5 Product; No Price Check Digit; 5 Price; 1 Check Digit", u"2011111333334"},
      {u"5 Product; 1 Price Check Digit; 4 Price; 1 Check Digit", u"2011111233334"},
      {u"4 Product; 1 Price Check Digit; 5 Price; 1 Check Digit", u"2011112333334"},
      {u"4 Product; 2 Price Check Digits; 4 Price; 1 Check Digit", u"2011112233334"}};
  show([&] {
    ASSERT_EQ(editor.cboRandomPrice.count(), 5);
    EXPECT_EQ(example(), formats[0].second);
    for (int i = 4; i >= 0; --i) {
      user.choose(editor.cboRandomPrice, i);
      EXPECT_EQ(editor.cboRandomPrice.text(), formats[static_cast<std::size_t>(i)].first);
      EXPECT_EQ(example(), formats[static_cast<std::size_t>(i)].second);
    }
  });
}

TEST_F(FrmRandomPriceTest, EachFormatIdSelectsItsFormatAndEachChoiceGivesItsId) {
  for (int id = 1; id <= 5; ++id) {
    editor.FormatID = id;
    accept([&] { EXPECT_EQ(editor.cboRandomPrice.listIndex(), id - 1); });
    EXPECT_EQ(editor.FormatID, id);
    accept([&] { user.choose(editor.cboRandomPrice, 5 - id); });
    EXPECT_EQ(editor.FormatID, 6 - id);
  }
}

TEST_F(FrmRandomPriceTest, ThePrefixIsShownWithTwoDigitsOrMore) {
  const std::vector<std::pair<int, Text>> prefixes = {{0, u"00"},   {2, u"02"},       {9, u"09"},
                                                      {10, u"10"},  {99, u"99"},      {100, u"100"},
                                                      {-1, u"-01"}, {12345, u"12345"}};
  for (const auto& [prefix, shown] : prefixes) {
    editor.Prefix = prefix;
    accept([&, &text = shown] {
      EXPECT_EQ(box(frmRandomPrice::prefix).text(), text);
      EXPECT_EQ(example(), text + u"11111133334");
    });
    EXPECT_EQ(editor.Prefix, prefix);
  }
}

TEST_F(FrmRandomPriceTest, AFormatIdOutOfRangeSelectsNothingAndIsKeptUntilOneIsChosen) {
  for (const std::int32_t id : {0, 6, 9, -1, std::numeric_limits<std::int32_t>::max(),
                                std::numeric_limits<std::int32_t>::min()}) {
    editor.FormatID = id;
    accept([&] {
      EXPECT_EQ(editor.cboRandomPrice.listIndex(), -1);
      EXPECT_EQ(editor.cboRandomPrice.text(), u"");
      EXPECT_EQ(example(), u"");
    });
    EXPECT_EQ(editor.FormatID, id);
    accept([&] {
      user.choose(editor.cboRandomPrice, 2);
      EXPECT_EQ(example(), u"2011111233334");
    });
    EXPECT_EQ(editor.FormatID, 3);
  }
}

TEST_F(FrmRandomPriceTest, AFormatWithoutAPatternLeavesTheExample) {
  editor.FormatDescriptions.emplace_back(u"A sixth");
  accept([&] {
    ASSERT_EQ(editor.cboRandomPrice.count(), 6);
    user.choose(editor.cboRandomPrice, 1);
    user.choose(editor.cboRandomPrice, 5);
    EXPECT_EQ(example(), u"2011111333334");
  });
  EXPECT_EQ(editor.FormatID, 6);
}

TEST_F(FrmRandomPriceTest, WithoutDescriptionsNothingIsOffered) {
  for (const std::vector<Text>& none : {std::vector<Text>{}, std::vector<Text>{u"never shown"}}) {
    editor.FormatDescriptions = none;
    accept([&] { EXPECT_EQ(editor.cboRandomPrice.count(), 0); });
    EXPECT_EQ(editor.FormatID, 1);
  }
}

TEST_F(FrmRandomPriceTest, OptionBitsAreThoseOfTheBoxesOneAndTwo) {
  for (const int bits : {0, 1, 2, 3}) {
    editor.OptionBits = bits;
    accept([&] {
      EXPECT_EQ(check(1).value(), (bits & 1) != 0);
      EXPECT_EQ(check(2).value(), (bits & 2) != 0);
    });
    EXPECT_EQ(editor.OptionBits, bits);
    accept([&] { user.click(check(1)); });
    EXPECT_EQ(editor.OptionBits, bits ^ 1);
    accept([&] { user.click(check(2)); });
    EXPECT_EQ(editor.OptionBits, bits ^ 3);
  }
}

TEST_F(FrmRandomPriceTest, OptionBitsWithoutABoxAreClearedByOkAndKeptByCancel) {
  for (const std::int32_t bits : {-1, 7, 0x40000001}) {
    editor.OptionBits = bits;
    show([&] { user.press(Key::escape); });
    EXPECT_EQ(editor.OptionBits, bits);
    accept([] {});
    EXPECT_EQ(editor.OptionBits, bits & 3);
  }
}

TEST_F(FrmRandomPriceTest, TheInactiveBoxIsNotAnOptionBit) {
  editor.OptionBits = 0;
  accept([&] { user.click(check(frmRandomPrice::inactive)); });
  EXPECT_TRUE(editor.Inactive);
  EXPECT_EQ(editor.OptionBits, 0);
  accept([&] { user.click(check(frmRandomPrice::inactive)); });
  EXPECT_FALSE(editor.Inactive);
}

TEST_F(FrmRandomPriceTest, CaptionsAreEnabledWhileTheUnitOfMeasureIsCalculated) {
  editor.OptionBits = 1;
  show([&] {
    expectCaptionsEnabled(false);
    user.click(check(frmRandomPrice::calculateUnitOfMeasure));
    expectCaptionsEnabled(true);
    user.click(check(frmRandomPrice::priceIncludesTax));
    user.click(check(frmRandomPrice::inactive));
    expectCaptionsEnabled(true);
    user.click(check(frmRandomPrice::calculateUnitOfMeasure));
    expectCaptionsEnabled(false);
    user.click(check(frmRandomPrice::priceIncludesTax));
    user.click(check(frmRandomPrice::inactive));
    expectCaptionsEnabled(false);
  });
  editor.OptionBits = 2;
  show([&] { expectCaptionsEnabled(true); });
}

TEST_F(FrmRandomPriceTest, ADisabledCaptionLabelIsEngraved) {
  editor.OptionBits = 0;
  show([&] {
    const ui::Size pixel = desk->screen().twipsPerPixel();
    for (const auto& [index, shadowIndex] :
         {std::pair{frmRandomPrice::ofUnitCaption, frmRandomPrice::shadowOfUnitCaption},
          std::pair{frmRandomPrice::ofPriceUnitCaption,
                    frmRandomPrice::shadowOfPriceUnitCaption}}) {
      const ui::Label& label = editor.lblLabel[index];
      const ui::Label& shadow = editor.lblLabel[shadowIndex];
      EXPECT_EQ(shadow.caption(), label.caption());
      EXPECT_EQ(shadow.foreColour(), ui::kButtonHighlight);
      EXPECT_EQ(shadow.bounds().left, label.bounds().left + pixel.width);
      EXPECT_EQ(shadow.bounds().top, label.bounds().top + pixel.height);
      EXPECT_EQ(shadow.bounds().width, label.bounds().width);
      EXPECT_GT(label.stacking(), shadow.stacking());
    }
  });
}

TEST_F(FrmRandomPriceTest, UntickingTheUnitOfMeasureKeepsTheTypedCaptions) {
  accept([&] {
    user.click(box(frmRandomPrice::unitCaption));
    user.type(u"pound");
    user.click(box(frmRandomPrice::priceUnitCaption));
    user.type(u"/lb");
    user.click(check(frmRandomPrice::calculateUnitOfMeasure));
    EXPECT_EQ(box(frmRandomPrice::unitCaption).text(), u"pound");
    EXPECT_EQ(box(frmRandomPrice::priceUnitCaption).text(), u"/lb");
  });
  EXPECT_EQ(editor.OptionBits, 1);
  EXPECT_EQ(editor.UOMUnitCaption, u"pound");
  EXPECT_EQ(editor.UOMPriceUnitCaption, u"/lb");
}

TEST_F(FrmRandomPriceTest, CaptionsAreTakenAsTypedWhateverTheyAre) {
  accept([&] {
    user.click(box(frmRandomPrice::unitCaption));
    user.press(Key::del);
    user.click(box(frmRandomPrice::priceUnitCaption));
    user.press(Key::del);
  });
  EXPECT_EQ(editor.UOMUnitCaption, u"");
  EXPECT_EQ(editor.UOMPriceUnitCaption, u"");
  accept([&] {
    user.click(box(frmRandomPrice::unitCaption));
    user.type(u"  O'Neil; a|b ");
    user.click(box(frmRandomPrice::priceUnitCaption));
    user.paste(Text(2000, u'x'));
  });
  EXPECT_EQ(editor.UOMUnitCaption, u"  O'Neil; a|b ");
  EXPECT_EQ(editor.UOMPriceUnitCaption, Text(2000, u'x'));
}

TEST_F(FrmRandomPriceTest, PrefixAndExampleAreShownButNotEdited) {
  accept([&] {
    for (const int index : {frmRandomPrice::example, frmRandomPrice::prefix}) {
      const Text before = box(index).text();
      user.click(box(index));
      EXPECT_TRUE(box(index).hasFocus());
      EXPECT_EQ(box(index).selText(), before);
      user.type(u"7");
      user.press(Key::del);
      user.paste(u"99");
      EXPECT_EQ(box(index).text(), before);
    }
  });
  EXPECT_EQ(editor.Prefix, 20);
}

TEST_F(FrmRandomPriceTest, EveryTextBoxSelectsItsTextOnFocus) {
  show([&] {
    for (const auto& [index, textBox] : editor.txtRandomPrice) {
      if (!textBox->hasFocus()) user.click(*textBox);
      EXPECT_EQ(textBox->selStart(), 0) << index;
      EXPECT_EQ(textBox->selLength(), static_cast<int>(textBox->text().size())) << index;
    }
  });
}

TEST_F(FrmRandomPriceTest, OnlyOkAccepts) {
  const std::vector<std::function<void()>> ways = {
      [&] { user.click(editor.cmdCommand[frmRandomPrice::cancel]); },
      [&] { user.accessKey(u'c'); },
      [&] { user.press(Key::escape); },
      [&] { user.press(Key::f4, {.alt = true}); },
      [&] { user.closeWindow(editor); },
  };
  for (const auto& leave : ways) {
    show([&] {
      user.choose(editor.cboRandomPrice, 4);
      user.click(check(frmRandomPrice::inactive));
      user.click(check(frmRandomPrice::priceIncludesTax));
      user.click(box(frmRandomPrice::unitCaption));
      user.type(u"other");
      user.click(box(frmRandomPrice::priceUnitCaption));
      user.type(u"other");
      leave();
      EXPECT_FALSE(editor.isShown());
    });
    EXPECT_TRUE(editor.Cancelled());
    EXPECT_EQ(editor.FormatID, 1);
    EXPECT_FALSE(editor.Inactive);
    EXPECT_EQ(editor.OptionBits, 3);
    EXPECT_EQ(editor.UOMUnitCaption, u"kg");
    EXPECT_EQ(editor.UOMPriceUnitCaption, u"/kg");
  }
}

TEST_F(FrmRandomPriceTest, EnterAcceptsFromAnywhereButCancel) {
  const std::vector<ui::Control*> controls = {&box(frmRandomPrice::prefix), &editor.cboRandomPrice,
                                              &check(frmRandomPrice::priceIncludesTax),
                                              &box(frmRandomPrice::priceUnitCaption),
                                              &editor.cmdCommand[frmRandomPrice::ok]};
  for (ui::Control* control : controls) {
    show([&] {
      EXPECT_TRUE(control->setFocus());
      user.press(Key::enter);
      EXPECT_FALSE(editor.isShown());
    });
    EXPECT_FALSE(editor.Cancelled());
  }
  show([&] {
    EXPECT_TRUE(editor.cmdCommand[frmRandomPrice::cancel].setFocus());
    user.press(Key::enter);
  });
  EXPECT_TRUE(editor.Cancelled());
}

TEST_F(FrmRandomPriceTest, EachShowStartsFromTheCallersValues) {
  show([&] {
    user.choose(editor.cboRandomPrice, 3);
    user.click(check(frmRandomPrice::calculateUnitOfMeasure));
    user.press(Key::escape);
  });
  EXPECT_TRUE(editor.Cancelled());
  editor.FormatID = 9;
  accept([&] {
    EXPECT_EQ(editor.cboRandomPrice.count(), 5);
    EXPECT_EQ(editor.cboRandomPrice.listIndex(), -1);
    EXPECT_EQ(example(), u"");
    EXPECT_TRUE(check(frmRandomPrice::calculateUnitOfMeasure).value());
    expectCaptionsEnabled(true);
  });
}

TEST_F(FrmRandomPriceTest, TabWalksInOrderPastDisabledCaptions) {
  show([&] {
    EXPECT_TRUE(editor.cboRandomPrice.hasFocus()) << "the prefix before it is locked";
    const std::vector<ui::Control*> order = {&editor.cboRandomPrice,
                                             &box(frmRandomPrice::example),
                                             &check(frmRandomPrice::priceIncludesTax),
                                             &check(frmRandomPrice::calculateUnitOfMeasure),
                                             &box(frmRandomPrice::unitCaption),
                                             &box(frmRandomPrice::priceUnitCaption),
                                             &check(frmRandomPrice::inactive),
                                             &editor.cmdCommand[frmRandomPrice::ok],
                                             &editor.cmdCommand[frmRandomPrice::cancel],
                                             &box(frmRandomPrice::prefix),
                                             &editor.cboRandomPrice};
    expectTabOrder(order);
    user.click(check(frmRandomPrice::calculateUnitOfMeasure));
    user.press(Key::tab);
    EXPECT_TRUE(check(frmRandomPrice::inactive).hasFocus());
  });
}

TEST_F(FrmRandomPriceTest, AccessKeysReachTheirControls) {
  accept([&] {
    const std::vector<std::pair<char16_t, ui::Control*>> keys = {
        {u'b', &editor.cboRandomPrice},
        {u'a', &box(frmRandomPrice::unitCaption)},
        {u't', &box(frmRandomPrice::priceUnitCaption)},
        {u'p', &check(frmRandomPrice::priceIncludesTax)},
        {u'r', &check(frmRandomPrice::inactive)},
        {u'u', &check(frmRandomPrice::calculateUnitOfMeasure)}};
    for (const auto& [key, control] : keys) {
      user.accessKey(key);
      EXPECT_TRUE(control->hasFocus()) << static_cast<char>(key);
    }
  });
  EXPECT_EQ(editor.OptionBits, 0);
  EXPECT_TRUE(editor.Inactive);
}

TEST_F(FrmRandomPriceTest, TheAccessKeysOfDisabledCaptionsLeadNowhere) {
  editor.OptionBits = 0;
  show([&] {
    user.accessKey(u'b');
    for (const char16_t key : {u'a', u't'}) {
      user.accessKey(key);
      EXPECT_TRUE(editor.cboRandomPrice.hasFocus()) << static_cast<char>(key);
      EXPECT_TRUE(editor.isShown());
    }
    user.accessKey(u'u');
    user.accessKey(u't');
    EXPECT_TRUE(box(frmRandomPrice::priceUnitCaption).hasFocus());
  });
}

TEST_F(FrmRandomPriceTest, EverythingHasItsPlaceAndNothingOverlaps) {
  show([&] {
    const std::set<const ui::Control*> shadows = {
        &editor.lblLabel[frmRandomPrice::shadowOfUnitCaption],
        &editor.lblLabel[frmRandomPrice::shadowOfPriceUnitCaption]};
    const std::function<void(const ui::Container&)> check = [&](const ui::Container& holder) {
      std::vector<ui::Rect> places;
      for (const auto& control : holder.children()) {
        if (shadows.contains(control)) continue;
        const ui::Rect& place = control->bounds();
        EXPECT_GT(place.width, 0) << toUtf8(control->caption());
        EXPECT_GT(place.height, 0) << toUtf8(control->caption());
        EXPECT_GE(place.left, 0) << toUtf8(control->caption());
        EXPECT_LE(place.right(), holder.clientSize().width) << toUtf8(control->caption());
        EXPECT_LE(place.bottom(), holder.clientSize().height) << toUtf8(control->caption());
        for (const ui::Rect& other : places) {
          EXPECT_TRUE(place.left >= other.right() || other.left >= place.right() ||
                      place.top >= other.bottom() || other.top >= place.bottom())
              << toUtf8(control->caption());
        }
        places.push_back(place);
        if (control->kind() == ui::Kind::frame) check(static_cast<ui::Frame&>(*control));
      }
    };
    check(editor);
    const int longest = desk->screen().textWidth(editor.FormatDescriptions[5]);
    EXPECT_GT(editor.cboRandomPrice.bounds().width, longest);
    EXPECT_GT(box(frmRandomPrice::example).bounds().width, desk->screen().textWidth(example()));
  });
}

}  // namespace
}  // namespace tillora::testing
