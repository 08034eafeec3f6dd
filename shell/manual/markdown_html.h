#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace kalvo {

/// Makes the picture of a target with its caption, HTML.
using PictureMaker = std::function<std::string(std::string_view target, std::string_view caption)>;

/// What `markdown` says as HTML for the toolkit's text documents: headings with their anchors
/// (AnchorMaker), paragraphs, lists, tables with heads, pictures, code, quotes, links. Comments are
/// left out. `key` is the class of what stands between "`" marks, `picture` of a picture's
/// paragraph, `caption` of its caption.
std::string MarkdownToHtml(std::string_view markdown, const PictureMaker& picture);

/// The text with the signs that HTML has a use for replaced.
std::string HtmlText(std::string_view text);

}  // namespace kalvo
