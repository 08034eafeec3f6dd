#pragma once

#include <gtest/gtest.h>

#include "study/record.h"

namespace kalvo {

/// Fails for every field in which the row differs from the one expected.
template <typename Row>
void ExpectSameRow(const Row& row, const Row& expected) {
  const auto compare = [&](const auto& field) {
    EXPECT_EQ(row.*field.member, expected.*field.member) << field.name;
  };
  std::apply([&](const auto&... fields) { (compare(fields), ...); }, Row::kFields);
}

}  // namespace kalvo
