#pragma once

#include <CLI/CLI.hpp>

#include <memory>

namespace kalvo {

/// Help in Greek, an option's line holding its name and the form of its value only.
std::shared_ptr<CLI::Formatter> GreekHelp();

/// What is wrong with the arguments, in Greek, naming the argument where it is known.
std::string WhatIsWrong(const CLI::ParseError& error, const CLI::App& program);

}  // namespace kalvo
