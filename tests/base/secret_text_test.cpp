#include "base/secret_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>

namespace tillora {
namespace {

constexpr TextView kShort = u"short";
constexpr TextView kLong = u"longer than fits into the text itself";

// Whether nothing is left in the memory of a text, even beyond its end.
bool isWiped(const Text& text) {
  return std::all_of(text.data(), text.data() + text.capacity(), [](char16_t c) { return c == 0; });
}

TEST(SecretText, WipingOverwritesEveryByte) {
  std::array<unsigned char, 5> bytes = {1, 2, 3, 4, 5};
  wipe(bytes.data() + 1, 3);
  EXPECT_EQ(bytes, (std::array<unsigned char, 5>{1, 0, 0, 0, 5}));
  wipe(nullptr, 0);
}

TEST(SecretText, AWipedTextIsEmptyToTheEndOfItsMemory) {
  for (const TextView content : {kShort, kLong}) {
    Text text(content);
    text.resize(1);
    wipe(text);
    EXPECT_TRUE(text.empty());
    EXPECT_TRUE(isWiped(text));
  }
}

TEST(SecretText, NothingStaysInATextThatIsTakenOver) {
  for (const TextView content : {kShort, kLong}) {
    Text text(content);
    SecretText secret;
    secret.take(text);
    EXPECT_EQ(secret.text(), content);
    EXPECT_TRUE(text.empty());
    EXPECT_TRUE(isWiped(text));
  }
}

TEST(SecretText, NothingStaysInASecretThatIsMovedFrom) {
  for (const TextView content : {kShort, kLong}) {
    SecretText from{Text(content)};
    SecretText to(std::move(from));
    EXPECT_EQ(to.text(), content);
    EXPECT_TRUE(isWiped(from.text()));  // NOLINT(bugprone-use-after-move)
    from = std::move(to);
    EXPECT_EQ(from.text(), content);
    EXPECT_TRUE(isWiped(to.text()));  // NOLINT(bugprone-use-after-move)
  }
}

TEST(SecretText, CopiesAreTextsOfTheirOwn) {
  SecretText one{Text(kLong)};
  SecretText two(one);
  one = SecretText();
  EXPECT_TRUE(one.empty());
  EXPECT_EQ(two.text(), kLong);
  one = two;
  two = SecretText(Text(kShort));
  EXPECT_EQ(one.text(), kLong);
  EXPECT_EQ(two.text(), kShort);
  const SecretText& same = one;
  one = same;
  EXPECT_EQ(one.text(), kLong);
}

TEST(SecretText, ATextIsOverwrittenWhenItEndsOrIsReplaced) {
  alignas(SecretText) std::array<unsigned char, sizeof(SecretText)> place{};
  const auto holds = [&](TextView content) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(content.data());
    return std::search(place.begin(), place.end(), bytes,
                       bytes + content.size() * sizeof(char16_t)) != place.end();
  };
  auto* secret = std::construct_at(reinterpret_cast<SecretText*>(place.data()), Text(kShort));
  EXPECT_TRUE(holds(kShort));
  *secret = SecretText(u"a");
  EXPECT_FALSE(holds(kShort.substr(1)));
  *secret = SecretText(Text(kShort));
  std::destroy_at(secret);
  EXPECT_FALSE(holds(kShort.substr(1)));
}

}  // namespace
}  // namespace tillora
