#pragma once

#include <QImage>
#include <QTextBlock>
#include <QTextDocument>
#include <filesystem>
#include <string>

#include "desktop/theme.h"

namespace kalvo {

/// How a chapter is set: colours, sizes in points, and how wide a picture may be, in px.
struct ManualLook {
  const Theme* theme = &kLightTheme;
  double body_points = kBodyPoints;
  int widest_picture = 0;
  double picture_scale = 1;  ///< of a picture that has the room for it
  bool dark = false;         ///< pictures of the dark theme, where there are some
};

/// A chapter's Markdown as a text document: `folder` is where its pictures' names begin.
/// Pictures have their sizes but are read when they are painted.
void SetManualText(QTextDocument& document, const std::string& markdown,
                   const std::filesystem::path& folder, const ManualLook& look);

/// True for a paragraph of a quote.
bool IsQuote(const QTextBlock& block);

/// The file of a picture as SetManualText() names it, scaled to `width` px times `ratio`; a width
/// of 0 leaves it as it is. A null picture when it cannot be read.
QImage ManualPicture(const QString& file, int width, double ratio);

}  // namespace kalvo
