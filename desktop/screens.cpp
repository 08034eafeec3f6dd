#include "desktop/screens.h"

#include <algorithm>

#include <ui_frm_liquid.h>

#include "entry/frm_liquid.h"

namespace kalvo {
namespace {

template <typename Design>
void SetUp(QWidget& window) {
  Design design;
  design.setupUi(&window);
}

constexpr Screen kScreens[] = {
    {screen::kLiquid, &MakeForm<FrmLiquid>, &SetUp<Ui::FrmLiquid>},
};

}  // namespace

std::span<const Screen> Screens() { return kScreens; }

const Screen* FindScreen(std::string_view name) {
  const auto* found = std::ranges::find(kScreens, name, &Screen::name);
  return found == std::end(kScreens) ? nullptr : found;
}

}  // namespace kalvo
