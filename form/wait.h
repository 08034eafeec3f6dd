#pragma once

#include <string_view>

#include "form/navigator.h"

namespace kalvo {

inline constexpr std::string_view kWaitText = "... Παρακαλώ, Περιμένετε ...";

/// The wait indicator is shown as long as this lives.
class WaitShown {
 public:
  explicit WaitShown(Navigator& navigator, std::string_view text = kWaitText)
      : navigator_(navigator) {
    navigator_.ShowWait(text);
  }
  ~WaitShown() { navigator_.HideWait(); }
  WaitShown(const WaitShown&) = delete;
  WaitShown& operator=(const WaitShown&) = delete;

 private:
  Navigator& navigator_;
};

}  // namespace kalvo
