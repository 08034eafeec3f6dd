#include "engine/first_row_index.h"

#include <algorithm>

namespace kalvo {

namespace {

template <typename KeyOf>
FirstRowIndex IndexBy(std::span<const SectionLine> table, KeyOf&& key_of) {
  std::vector<FirstRowIndex::Entry> entries;
  entries.reserve(table.size());
  for (const SectionLine& line : table) {
    entries.emplace_back(key_of(line), static_cast<int>(entries.size()) + 1);
  }
  return FirstRowIndex(std::move(entries));
}

}  // namespace

FirstRowIndex::FirstRowIndex(std::vector<Entry> entries) : entries_(std::move(entries)) {
  std::sort(entries_.begin(), entries_.end());
}

int FirstRowIndex::First(std::uint32_t key) const {
  const auto found = std::lower_bound(entries_.begin(), entries_.end(), Entry(key, 0));
  return found != entries_.end() && found->first == key ? found->second : 0;
}

std::span<const FirstRowIndex::Entry> FirstRowIndex::All(std::uint32_t key) const {
  const auto [begin, end] =
      std::equal_range(entries_.begin(), entries_.end(), Entry(key, 0),
                       [](const Entry& a, const Entry& b) { return a.first < b.first; });
  return {begin, end};
}

std::uint32_t NodeKey(std::string_view node) {
  std::uint32_t key = 1;  // tells a zero byte in front from none
  for (const char c : Trim(node)) {
    key = (key << 8U) | static_cast<unsigned char>(c);
  }
  return key;
}

std::uint32_t NumberKey(int number) { return static_cast<std::uint32_t>(number); }

FirstRowIndex IndexByLeftNode(std::span<const SectionLine> table) {
  return IndexBy(table, [](const SectionLine& line) { return NodeKey(LeftNode(line.name)); });
}

FirstRowIndex IndexByRightNode(std::span<const SectionLine> table) {
  return IndexBy(table, [](const SectionLine& line) { return NodeKey(RightNode(line.name)); });
}

FirstRowIndex IndexByNumber(std::span<const SectionLine> table) {
  return IndexBy(table, [](const SectionLine& line) { return NumberKey(line.number); });
}

Links LinkRows(std::span<const SectionLine> table) {
  const FirstRowIndex by_left = IndexByLeftNode(table);
  const FirstRowIndex by_right = IndexByRightNode(table);
  const auto find = [](const FirstRowIndex& index, std::string_view node) {
    return node == kSource ? 0 : index.First(NodeKey(node));
  };
  Links links;
  links.next.reserve(table.size());
  links.previous.reserve(table.size());
  for (const SectionLine& line : table) {
    links.next.push_back(find(by_left, RightNode(line.name)));
    links.previous.push_back(find(by_right, LeftNode(line.name)));
  }
  return links;
}

std::vector<int> LinkFeeders(std::span<const SectionLine> table) {
  const FirstRowIndex by_left = IndexByLeftNode(table);
  std::vector<int> feeders;
  feeders.reserve(table.size());
  for (const SectionLine& line : table) {
    const std::string_view feeder = RightNode(line.name);
    const bool is_top = feeders.empty();  // whatever its name says
    feeders.push_back(is_top ? 0 : feeder == kSource ? 1 : by_left.First(NodeKey(feeder)));
  }
  return feeders;
}

}  // namespace kalvo
