#include "shell/manual/manual_chapters.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <regex>
#include <set>

#include "form/navigator.h"
#include "shell/manual/markdown_html.h"
#include "shell/message_table.h"
#include "study/real_disk.h"
#include "tests/support/markdown.h"

namespace kalvo {
namespace {

const std::filesystem::path kManual = std::filesystem::path(KALVO_SOURCE_DIR) / "docs/manual";

ManualBook DeliveredBook() { return ManualBook::Read(RealDisk(), kManual).value(); }

bool HasHeading(const ManualBook& book, const ManualPlace& place) {
  const BookChapter* chapter = book.Find(place.chapter);
  return chapter != nullptr &&
         std::ranges::count(chapter->headings, place.anchor, &ManualHeading::anchor) == 1;
}

// The names that forms are asked for by.
std::set<std::string> ScreenNames() {
  const std::string text = ReadMarkdown(kManual / "../../form/navigator.h").text;
  const std::regex name("\"(Frm[A-Za-z0-9_]+)\"");
  std::set<std::string> names;
  for (auto at = std::sregex_iterator(text.begin(), text.end(), name); at != std::sregex_iterator();
       ++at) {
    names.insert((*at)[1]);
  }
  return names;
}

TEST(ManualChapters, EveryScreenHasItsPlace) {
  const std::set<std::string> names = ScreenNames();
  EXPECT_GT(names.size(), 35U);
  const ManualBook book = DeliveredBook();
  for (const std::string& name : names) {
    const auto entries = std::ranges::count(ScreenChapters(), name, &ScreenChapter::screen);
    EXPECT_EQ(entries, 1) << name;
    const ManualPlace place = PlaceOfScreen(name);
    EXPECT_TRUE(HasHeading(book, place)) << name << ": " << place.chapter << "#" << place.anchor;
  }
  for (const ScreenChapter& entry : ScreenChapters()) {
    EXPECT_TRUE(names.contains(std::string(entry.screen))) << entry.screen << " is no screen";
  }
}

TEST(ManualChapters, LinksLeadToHeadingsThatAreThere) {
  const ManualBook book = DeliveredBook();
  for (const BookChapter& chapter : book.chapters()) {
    for (const std::string& target : Markdown{chapter.text}.Targets()) {
      const ManualPlace place = book.Follow(chapter.name, target);
      if (place.chapter.empty()) continue;  // a picture
      const bool whole = place.anchor.empty() && book.Find(place.chapter) != nullptr;
      EXPECT_TRUE(whole || HasHeading(book, place)) << chapter.name << ": " << target;
    }
  }
}

TEST(ManualTextIn, HeadingsGetTheAnchorsOfLinks) {
  EXPECT_EQ(ManualAnchor("Θέμα, μέγεθος και «σημείο» των δεκαδικών"),
            "θέμα-μέγεθος-και-σημείο-των-δεκαδικών");
  EXPECT_EQ(ManualAnchor("-300"), "-300");
  const auto headings = HeadingsOf("# Α `F9`\n```\n# no\n```\n## Ίδιο\n## Ίδιο\n#no\n");
  ASSERT_EQ(headings.size(), 3U);
  EXPECT_EQ(headings[0].text, "Α F9");
  EXPECT_EQ(headings[2].anchor, "ίδιο-1");
  EXPECT_EQ(PlainText("![η οθόνη](a.png), **έντονα** `F9` [εδώ](b.md#c) 2\\*3"),
            "η οθόνη, έντονα F9 εδώ 2*3");
}

std::string Html(std::string_view markdown) {
  return MarkdownToHtml(markdown, [](std::string_view target, std::string_view caption) {
    return "<" + std::string(target) + "|" + std::string(caption) + ">";
  });
}

TEST(MarkdownHtml, WritesParagraphsWithTheirMarks) {
  EXPECT_EQ(Html("α **β *γ*** `F9 <` \\* a<b\nδ"),
            "<p>α <b>β <i>γ</i></b> <span class=\"key\">F9 &lt;</span> * a&lt;b δ</p>");
  EXPECT_EQ(Html("> α  \n> β\n>\n> γ"), "<blockquote><p>α<br/>β</p><p>γ</p></blockquote>");
  EXPECT_EQ(Html("2 * 3 * 4 and 5*"), "<p>2 * 3 * 4 and 5*</p>");
  EXPECT_EQ(Html("[**α**](b.md#γ) [no] `a"), "<p><a href=\"b.md#γ\"><b>α</b></a> [no] `a</p>");
  EXPECT_EQ(Html("![όψη](../p/a.png)"), "<p class=\"picture\"><../p/a.png|όψη></p>");
  EXPECT_EQ(Html("## Α\nβ\n<!-- table: x -->\nγ\n\n---\n> δ\n"),
            "<h2><a name=\"α\"></a>Α</h2><p>β</p><p>γ</p><hr/><blockquote><p>δ</p></blockquote>");
}

TEST(MarkdownHtml, WritesListsInsideListsAndCode) {
  EXPECT_EQ(Html("- α\n  β\n- γ\n\n  δ\n  1. ε\n  2. ζ\n\nη"),
            "<ul><li>α β</li><li>γ<p>δ</p><ol><li>ε</li><li>ζ</li></ol></li></ul><p>η</p>");
  EXPECT_EQ(Html("1. α\n\n2. β\n- γ"), "<ol><li>α</li><li>β</li></ol><ul><li>γ</li></ul>");
  EXPECT_EQ(Html("    a < b\n\n    **c**\n\nδ"), "<pre>a &lt; b\n\n**c**</pre><p>δ</p>");
  EXPECT_EQ(Html("```\n- a\n\n# b\n```\nγ"), "<pre>- a\n\n# b</pre><p>γ</p>");
  EXPECT_EQ(Html("```\nnever closed"), "<pre>never closed</pre>");
  EXPECT_EQ(Html("<!-- never\nclosed"), "");
}

TEST(MarkdownHtml, WritesTablesWithHeadsAndNumbersAtTheRight) {
  EXPECT_EQ(Html("| α | β |\n|---|--:|\n| a\\|b | `1` |\n| c |\nδ"),
            "<table width=\"100%\"><thead><tr><th align=\"left\">α</th>"
            "<th align=\"right\">β</th></tr></thead><tr><td align=\"left\">a|b</td>"
            "<td align=\"right\"><span class=\"key\">1</span></td></tr>"
            "<tr><td align=\"left\">c</td><td align=\"right\"></td></tr></table><p>δ</p>");
  EXPECT_EQ(Html("| no table"), "<p>| no table</p>");
}

}  // namespace
}  // namespace kalvo
