#pragma once

#include <string>
#include <string_view>

namespace kalvo {

class Form;

/// A named part of a form. It belongs to its form, where it is registered under its name in the
/// order of declaration, which is the order of reading.
class Control {
 public:
  Control(Form& form, std::string_view name);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  [[nodiscard]] const std::string& name() const { return name_; }

  bool visible = true;
  bool enabled = true;  ///< false: greyed and passed over

 private:
  std::string name_;
};

/// What a text or a value is painted as.
enum class Tone {
  kPlain,
  kQuiet,  ///< not known yet
  kAlarm,
  kCalculated,
  kImposed,
  kWaiting,  ///< imposed, not calculated yet
  kCritical,
  kStrong,  ///< the source's name
  kGood,    ///< it is better than before
};

/// A text that the form changes.
class Label : public Control {
 public:
  Label(Form& form, std::string_view name, std::string_view first_text = {})
      : Control(form, name), text(first_text) {}

  std::string text;
  Tone tone = Tone::kPlain;
};

}  // namespace kalvo
