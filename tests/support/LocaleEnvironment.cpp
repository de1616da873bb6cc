// Every test program runs in the locale of its user, as the programs themselves do. ROLLWICK_EXPECT_COMMA
// says that this must be one with a decimal comma: nothing we read or write may then look different.
#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>

namespace {

class LocaleEnvironment : public testing::Environment {
 public:
  void SetUp() override {
    const char* const locale = std::setlocale(LC_ALL, "");
    if (std::getenv("ROLLWICK_EXPECT_COMMA") == nullptr) return;
    ASSERT_NE(locale, nullptr) << "the locale asked for does not exist";
    char text[16];
    std::snprintf(text, sizeof text, "%.1f", 0.5);
    ASSERT_STREQ(text, "0,5") << "in locale " << locale;
  }
};

[[maybe_unused]] const testing::Environment* const kLocale =
    testing::AddGlobalTestEnvironment(new LocaleEnvironment);

}  // namespace
