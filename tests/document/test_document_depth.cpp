#include <set>

#include "document_fixture.h"

namespace ruvo {
namespace {

using desktop::Answer;
using test::DocumentTest;

class DocumentDepth : public DocumentTest {
 protected:
  std::set<QString> colours() {
    std::set<QString> all;
    for (int y = 0; y < picture().DIBHeight(); ++y) {
      for (int x = 0; x < picture().DIBWidth(); ++x) all.insert(colourAt(x, y));
    }
    return all;
  }
};

bool isWebsafe(const QColor& c) {
  return c.red() % 51 == 0 && c.green() % 51 == 0 && c.blue() % 51 == 0;
}
bool isOfTheSixteen(const QColor& c) {
  for (const Colour known : clsDIB::sixteenColours()) {
    if (known == rgb(c.red(), c.green(), c.blue())) return true;
  }
  return false;
}
bool isBlackOrWhite(const QColor& c) {
  return c == QColor(Qt::black) || c == QColor(Qt::white);
}

struct ReductionCase {
  const char* control;
  int index;
  const char* question;
  std::size_t mostColours;
  bool (*allowed)(const QColor&);
};

constexpr auto kAnyColour = [](const QColor&) { return true; };
const ReductionCase kReductions[] = {
    {"mnuColorReductionSub", 0, "\nProceed to change BPP?", 256, kAnyColour},
    {"mnuColorReductionSub", 1, "\nProceed to change BPP?", 16, isOfTheSixteen},
    {"mnuColorReductionBWSub", 0, "\nProceed to convert to B&W?", 2, isBlackOrWhite},
    {"mnuColorReductionBWSub", 3, "\nProceed to convert to B&W?", 2, isBlackOrWhite},
    {"mnuBPPSub", 2, "\nProceed to convert websafe?", 216, isWebsafe},
};

TEST_F(DocumentDepth, EachReductionAsksFirstAndBecomesAState) {
  ASSERT_TRUE(open(write("many.png", colourful())));
  const std::set<QString> before = colours();
  ASSERT_GT(before.size(), 1000u);
  std::set<std::set<QString>> results;
  for (const ReductionCase& c : kReductions) {
    desktop.messages.clear();
    proceed(c.control, c.index, Answer::No);
    EXPECT_EQ(desktop.messages.value(0), c.question);
    EXPECT_EQ(colours(), before);
    EXPECT_EQ(undoFiles().size(), 1u);
    EXPECT_FALSE(changed());
    main.panels[kPanelPixel] = "something";
    main.calls.clear();
    proceed(c.control, c.index);
    const std::set<QString> after = colours();
    EXPECT_LE(after.size(), c.mostColours);
    EXPECT_GE(after.size(), std::min<std::size_t>(c.mostColours, 6)) << c.control << c.index;
    for (const QString& colour : after) EXPECT_TRUE(c.allowed(QColor(colour))) << colour.toStdString();
    EXPECT_EQ(main.panels[kPanelPixel], "");
    EXPECT_TRUE(main.calls.contains("setProgress(100)"));
    EXPECT_EQ(main.calls.last(), "endProgress");
    EXPECT_EQ(undoFiles().size(), 2u);
    EXPECT_TRUE(changed());
    document->mnuEditUndo_Click();
    EXPECT_EQ(colours(), before);
    document->LoadOpenFile(path("many.png"), 3, false);
  }
}

TEST_F(DocumentDepth, TheViewModeHasNoReductions) {
  openPlain();
  main.tools.viewMode = true;
  document->updateEditButtons();
  EXPECT_FALSE(document->triggerMenu("mnuColorReductionSub", 0));
  main.tools.viewMode = false;
  document->updateEditButtons();
  proceed("mnuColorReductionSub", 0, Answer::No);
}

}  // namespace
}  // namespace ruvo
