#include "host/criteria.h"

#include <gtest/gtest.h>

#include <random>

#include "host/shop_error.h"
#include "tests/host/shop_fixture.h"

namespace tillora::host {
namespace {

/// The literal as the component writes it for any text.
Text literal(TextView text) {
  Text out = u"'";
  for (const char16_t c : text) {
    if (c == u'\'') {
      out += u"' & Chr$(39) & '";
    } else if (c == u'|') {
      out += u"' & Chr$(124) & '";
    } else if (c == u';') {
      out += u"' & Chr$(59) & '";
    } else {
      out += c;
    }
  }
  return out + u"'";
}

class CriteriaTest : public ShopFixture {
 protected:
  CriteriaTest() {
    accounts_ = shop_.database()->accountTable();
    add(u"Sales", false, u"INC");
    add(u"O'Neil", false, u"INC");
    add(u"a;b|c'd", true, u"EXP");
    add(u"", false, u"");
    add(u"sales", true, u"INC");
    prices_ = shop_.database()->randomPriceTable();
    for (const std::int32_t prefix : {2, 20, -3}) {
      prices_->addNew();
      prices_->set(fields::randomPrice::Prefix, prefix);
      prices_->update();
    }
  }

  void add(TextView name, bool inactive, TextView type) {
    accounts_->addNew();
    accounts_->set(fields::account::Name, Text(name));
    accounts_->set(fields::account::Inactive, inactive);
    accounts_->set(fields::account::AccountType, Text(type));
    accounts_->update();
  }

  /// Name of the account found, or "-".
  Text account(TextView criteria) {
    accounts_->findFirst(criteria);
    return accounts_->noMatch() ? u"-" : accounts_->get(fields::account::Name).get<Text>();
  }

  std::int32_t prefix(TextView criteria) {
    prices_->findFirst(criteria);
    return prices_->noMatch() ? 0 : prices_->get(fields::randomPrice::Prefix).get<std::int32_t>();
  }

  Shop shop_ = open({.seeded = false, .itemCount = std::nullopt});
  std::unique_ptr<Table> accounts_;
  std::unique_ptr<Table> prices_;
};

TEST_F(CriteriaTest, FindsByEachKindOfValue) {
  EXPECT_EQ(account(u"[Name] = 'Sales' AND [Inactive] = False AND [AccountType] = 'INC'"),
            u"Sales");
  EXPECT_EQ(account(u"[Name] = 'Sales' AND [Inactive] = True"), u"-");
  EXPECT_EQ(account(u"[Inactive] = True"), u"a;b|c'd");
  EXPECT_EQ(account(u"[Inactive] = -1"), u"a;b|c'd");
  EXPECT_EQ(account(u"[Inactive] = 0"), u"Sales");
  EXPECT_EQ(prefix(u"[Prefix] = 2"), 2);
  EXPECT_EQ(prefix(u"[Prefix] = 20"), 20);
  EXPECT_EQ(prefix(u"[Prefix] = +20"), 20);
  EXPECT_EQ(prefix(u"[Prefix] = -3"), -3);
  EXPECT_EQ(prefix(u"[Prefix] = - 3"), -3);
  EXPECT_EQ(prefix(u"[Prefix] = 200"), 0);
}

TEST_F(CriteriaTest, TakesBlanksOrNoneAndWordsInAnyCase) {
  EXPECT_EQ(account(u"Inactive=False"), u"Sales");
  EXPECT_EQ(account(u"inactive=TRUE"), u"a;b|c'd");
  EXPECT_EQ(account(u"  [ACCOUNTTYPE]  =  'INC'  aNd  name='sales'  "), u"sales");
  EXPECT_EQ(account(u"Name='Sales'AND[Inactive]=False"), u"Sales");
  EXPECT_EQ(account(u"Inactive=0AND Name='Sales'"), u"Sales");
  EXPECT_EQ(account(u"[Name]='O'&Chr$(39)&'Neil'"), u"O'Neil");
  EXPECT_EQ(account(u"[Name] = 'O' & chr$ ( 39 ) & 'Neil'"), u"O'Neil");
  EXPECT_EQ(account(u"[Name] = Chr$(83) & 'ales'"), u"Sales");
}

TEST_F(CriteriaTest, ComparesTextsExactly) {
  EXPECT_EQ(account(u"[Name] = 'sales'"), u"sales");
  EXPECT_EQ(account(u"[Name] = 'SALES'"), u"-");
  EXPECT_EQ(account(u"[Name] = 'Sales '"), u"-");
  EXPECT_EQ(account(u"[Name] = ''"), u"");
  EXPECT_EQ(account(literal(u"a;b|c'd").insert(0, u"[Name] = ")), u"a;b|c'd");
}

TEST_F(CriteriaTest, RefusesAnythingElse) {
  const Text untouched = account(u"[Name] = 'Sales'");
  for (const TextView criteria :
       std::initializer_list<TextView>{u"",
                                       u" ",
                                       u"[Name]",
                                       u"[Name] =",
                                       u"= 'x'",
                                       u"[Name = 'x'",
                                       u"Name] = 'x'",
                                       u"[Name] 'x'",
                                       u"[Name] = x",
                                       u"[Name] = \"x\"",
                                       u"[Name] = 'x",
                                       u"[Name] = x'",
                                       u"[Name] = 'x' 'y'",
                                       u"[Name] = 'x''y'",
                                       u"[Name] = 'x' &",
                                       u"[Name] = & 'x'",
                                       u"[Name] = 'x' & 1",
                                       u"[Name] = Chr$",
                                       u"[Name] = Chr$(",
                                       u"[Name] = Chr$(39",
                                       u"[Name] = Chr$()",
                                       u"[Name] = Chr$(-1)",
                                       u"[Name] = Chr$(128)",
                                       u"[Name] = Chr(39)",
                                       u"[Name] = Chr$('x')",
                                       u"[Name] = 'a;b'",
                                       u"[Name] = 'a|b'",
                                       u"[Name] == 'x'",
                                       u"[Name] <> 'x'",
                                       u"[Name] > 'x'",
                                       u"[Name] LIKE 'x'",
                                       u"[Name] IS NULL",

                                       u"([Name] = 'x')",
                                       u"[Name] = ('x')",
                                       u"[Name] = 'x' OR [Name] = 'y'",
                                       u"[Name] = 'x' AND",
                                       u"AND [Name] = 'x'",
                                       u"[Name] = 'x' AND AND [Name] = 'y'",
                                       u"[Name] = 'x' [Inactive] = True",
                                       u"[Inactive] = TrueAND [Name] = 'x'",
                                       u"[Inactive] = Truely",
                                       u"[Inactive] = --1",
                                       u"[Inactive] = 1.5",
                                       u"[Inactive] = 1e3",
                                       u"[Inactive] = 99999999999999999999",
                                       u"[Inactive] = 2147483648",
                                       u"[Inactive] = 0x1",
                                       TextView(u"[Name] = 'x'\0", 13),
                                       u"[Name]\n= 'x'"}) {
    const Error error = errorOf([&] { accounts_->findFirst(criteria); });
    EXPECT_EQ(error.number(), shop_error::criteriaSyntax) << toUtf8(criteria);
    EXPECT_EQ(error.source(), u"TilloraHost.JetDatabase");
    EXPECT_NE(error.description().find(u"Syntax error in criteria at character "), Text::npos);
  }
  // A refused find leaves the current row.
  EXPECT_EQ(accounts_->get(fields::account::Name).get<Text>(), untouched);
}

TEST_F(CriteriaTest, RefusesFieldsThatTheTableDoesNotHave) {
  for (const TextView criteria : std::initializer_list<TextView>{
           u"[Nam] = 'x'", u"rowid = 1", u"NOT [Name] = 'x'", u"[] = 'x'", u"[Name ] = 'x'",
           u"[\"Name\"] = 'x'", u"[Name\" = \"Name] = 'x'", u"[1] = 1", u"[sqlite_version()] = 'x'",
           u"[Name = Name; DROP TABLE accounts; --] = 'x'"}) {
    EXPECT_EQ(errorOf([&] { accounts_->findFirst(criteria); }).number(), shop_error::unknownField)
        << toUtf8(criteria);
  }
}

TEST_F(CriteriaTest, RefusesValuesThatTheFieldCannotHold) {
  for (const TextView criteria :
       std::initializer_list<TextView>{u"[Name] = 1", u"[Name] = True", u"[Inactive] = 'True'"}) {
    EXPECT_EQ(errorOf([&] { accounts_->findFirst(criteria); }).number(), shop_error::criteriaType)
        << toUtf8(criteria);
  }
}

TEST_F(CriteriaTest, NoPartOfACriteriaTextBecomesSql) {
  const TextView attacks[] = {u"x' OR '1'='1",
                              u"'; DROP TABLE accounts; --",
                              u"x\" OR 1=1 --",
                              u"?1",
                              u":x",
                              u"/* */",
                              u"\\'",
                              u"%",
                              u"_"};
  for (const TextView attack : attacks) {
    EXPECT_EQ(account(u"[Name] = " + literal(attack)), u"-") << toUtf8(attack);
    EXPECT_THROW(account(Text(u"[Name] = '").append(attack).append(u"' OR 'x' = 'x'")), Error);
  }
  EXPECT_EQ(account(u"[Name] = 'Sales'"), u"Sales");
}

TEST_F(CriteriaTest, LimitsTheNumberOfConditions) {
  Text criteria = u"Inactive=False";
  for (int i = 0; i < 31; ++i) criteria += u" AND Inactive=False";
  EXPECT_EQ(account(criteria), u"Sales");
  EXPECT_EQ(errorOf([&] { account(criteria + u" AND Inactive=False"); }).number(),
            shop_error::criteriaSyntax);
}

TEST_F(CriteriaTest, FindsAThousandRandomTextsByTheirLiterals) {
  constexpr TextView kAlphabet =
      u"'|;[]=&()$\" "
      u"\t\r\n\0\xFEFF\xFFFE\xD83D\xDE00\xDC00\xFFFF\u00E9\u03A9\u4E2D-+%_?*/\\ANDaz09";
  std::mt19937 random(20250101);  // NOLINT(cert-msc51-cpp): the same texts each time
  std::uniform_int_distribution<std::size_t> letter(0, kAlphabet.size() - 1);
  std::uniform_int_distribution<std::size_t> length(0, 24);
  std::vector<Text> texts;
  shop_.file().beginSave(this, u"Test");
  for (int i = 0; i < 1000; ++i) {
    Text text;
    for (std::size_t left = length(random); left != 0; --left) text += kAlphabet[letter(random)];
    texts.push_back(text);
    add(text, false, u"RND");
  }
  shop_.file().commitSave(this, u"Test");
  for (const Text& text : texts) {
    accounts_->findFirst(u"AccountType='RND' AND [Name] = " + literal(text));
    ASSERT_FALSE(accounts_->noMatch()) << toUtf8(text);
    ASSERT_EQ(accounts_->get(fields::account::Name).get<Text>(), text) << toUtf8(text);
  }
}

TEST_F(CriteriaTest, SurvivesRandomGarbage) {
  constexpr TextView kPieces[] = {u"[Name]='x'", u"[Name]", u"Inactive", u"=",  u"'x'", u"&",
                                  u"Chr$(39)",   u"AND",    u"True",     u"-5", u" ",   u"'",
                                  u"[",          u"]",      u"Chr$",     u"(",  u")",   u"\0x"};
  std::mt19937 random(7);  // NOLINT(cert-msc51-cpp): the same texts each time
  std::uniform_int_distribution<std::size_t> piece(0, std::size(kPieces) - 1);
  int refused = 0;
  for (int i = 0; i < 5000; ++i) {
    Text criteria;
    for (int n = i % 9; n >= 0; --n) criteria += kPieces[piece(random)];
    try {
      accounts_->findFirst(criteria);
    } catch (const Error& error) {
      ++refused;
      ASSERT_FALSE(error.description().empty());
    }
  }
  EXPECT_GT(refused, 4000);
  EXPECT_LT(refused, 5000);
}

}  // namespace
}  // namespace tillora::host
