#include "desktop/bindings/binding.h"

#include "desktop/bindings/choice_binding.h"
#include "desktop/bindings/command_binding.h"
#include "desktop/bindings/editable_grid_binding.h"
#include "desktop/bindings/entry_list_binding.h"
#include "desktop/bindings/field_binding.h"
#include "desktop/bindings/grid_binding.h"
#include "desktop/bindings/label_binding.h"
#include "desktop/bindings/list_binding.h"
#include "desktop/bindings/page_view_binding.h"
#include "desktop/bindings/picture_binding.h"
#include "desktop/bindings/progress_binding.h"
#include "desktop/bindings/reading_binding.h"
#include "desktop/bindings/toggle_binding.h"

namespace kalvo {
namespace {

// The part and the widget as these kinds, if both are.
template <typename Part, typename Widget>
struct Pair {
  Pair(Control& control, QWidget& shown)
      : part(dynamic_cast<Part*>(&control)), widget(qobject_cast<Widget*>(&shown)) {}
  explicit operator bool() const { return part != nullptr && widget != nullptr; }
  Part* part;
  Widget* widget;
};

template <typename BindingType, typename Part>
std::unique_ptr<Binding> MakeGrid(Part& part, QTableView& view, const Act& act) {
  auto binding = std::make_unique<BindingType>(part, view);
  binding->Join(act);
  return binding;
}

}  // namespace

std::unique_ptr<Binding> MakeBinding(Form& form, Control& part, QWidget& widget, const Act& act) {
  if (const Pair<Field, QLineEdit> pair(part, widget); pair) {
    return std::make_unique<FieldBinding>(form, *pair.part, *pair.widget, act);
  }
  if (const Pair<Label, QLabel> pair(part, widget); pair) {
    return std::make_unique<LabelBinding>(*pair.part, *pair.widget);
  }
  if (const Pair<Command, QAbstractButton> pair(part, widget); pair) {
    return std::make_unique<CommandBinding>(form, *pair.part, *pair.widget, act);
  }
  if (const Pair<Toggle, QAbstractButton> pair(part, widget); pair) {
    return std::make_unique<ToggleBinding>(*pair.part, *pair.widget, act);
  }
  if (const Pair<Choice, QComboBox> pair(part, widget); pair) {
    return std::make_unique<ChoiceBinding>(*pair.part, *pair.widget, act);
  }
  if (const Pair<List, QListView> pair(part, widget); pair) {
    return std::make_unique<ListBinding>(*pair.part, *pair.widget, act);
  }
  if (const Pair<EntryList, QListView> pair(part, widget); pair) {
    return std::make_unique<EntryListBinding>(*pair.part, *pair.widget, act);
  }
  if (const Pair<Progress, QProgressBar> pair(part, widget); pair) {
    return std::make_unique<ProgressBinding>(*pair.part, *pair.widget);
  }
  if (const Pair<EditableGrid, QTableView> pair(part, widget); pair) {
    return MakeGrid<EditableGridBinding>(*pair.part, *pair.widget, act);
  }
  if (const Pair<Grid, QTableView> pair(part, widget); pair) {
    return MakeGrid<GridBinding>(*pair.part, *pair.widget, act);
  }
  if (const Pair<PageView, PageSheet> pair(part, widget); pair) {
    return std::make_unique<PageViewBinding>(*pair.part, *pair.widget, act);
  }
  if (const Pair<Reading, ManualBrowser> pair(part, widget); pair) {
    return std::make_unique<ReadingBinding>(*pair.part, *pair.widget, act);
  }
  return MakePictureBinding(part, widget, act);
}

}  // namespace kalvo
