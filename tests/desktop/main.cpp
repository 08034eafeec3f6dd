#include <gmock/gmock.h>

#include <QApplication>
#include <set>
#include <string_view>

#include "desktop/greek_texts.h"
#include "desktop/theme.h"

namespace kalvo {
namespace {

// The program's translator, noting the texts of the toolkit for which it has no Greek.
class RecordingTexts : public GreekTexts {
 public:
  [[nodiscard]] QString translate(const char* context, const char* source,
                                  const char* disambiguation, int n) const override {
    // Names of papers, which are no words, stay as they are.
    const bool of_toolkit = context != nullptr && std::string_view(context).starts_with('Q') &&
                            std::string_view(context) != "QPageSize";
    if (of_toolkit && source != nullptr && Find(source) == nullptr) unknown.emplace(source);
    return GreekTexts::translate(context, source, disambiguation, n);
  }

  mutable std::set<std::string> unknown;
};

// At the end of all tests, so that every window that any of them showed has been heard.
class EveryTextIsGreek : public testing::Environment {
 public:
  explicit EveryTextIsGreek(const RecordingTexts& texts) : texts_(texts) {}
  void TearDown() override { EXPECT_THAT(texts_.unknown, testing::IsEmpty()); }

 private:
  const RecordingTexts& texts_;
};

}  // namespace
}  // namespace kalvo

int main(int argc, char** argv) {
  testing::InitGoogleMock(&argc, argv);
  QApplication app(argc, argv);
  kalvo::ApplyTheme(app, kalvo::kLightTheme);
  kalvo::RecordingTexts texts;
  QCoreApplication::installTranslator(&texts);
  // Writing pictures has texts of its own, which no user sees.
  if (qEnvironmentVariableIsEmpty("KALVO_PICTURES")) {
    testing::AddGlobalTestEnvironment(new kalvo::EveryTextIsGreek(texts));
  }
  return RUN_ALL_TESTS();
}
