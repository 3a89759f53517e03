#include "workbench/render/RendererTable.h"

#include <string_view>

#include "workbench/render/ChartRenderer.h"
#include "workbench/render/CheckBoxRenderer.h"
#include "workbench/render/CheckEditRenderer.h"
#include "workbench/render/ComboEditRenderer.h"
#include "workbench/render/CommandButtonRenderer.h"
#include "workbench/render/DateLabelRenderer.h"
#include "workbench/render/LabelRenderer.h"
#include "workbench/render/LineEditRenderer.h"
#include "workbench/render/ListViewRenderer.h"
#include "workbench/render/MarksRenderer.h"
#include "workbench/render/NestedRenderer.h"
#include "workbench/render/OptionButtonRenderer.h"
#include "workbench/render/SliderRenderer.h"
#include "workbench/render/TextBoxRenderer.h"
#include "workbench/render/TextInputRenderer.h"

namespace ostrand {

namespace {

using Make = std::unique_ptr<ControlRenderer> (*)(FormPage&, Control&);

// The model's class is known by the name or kind alone; another class under that name has no display.
template <class Renderer, class Model>
std::unique_ptr<ControlRenderer> make(FormPage& page, Control& control) {
  if (auto* model = dynamic_cast<Model*>(&control)) return std::make_unique<Renderer>(page, *model);
  return nullptr;
}

// A text box is typed into where somebody hears of it.
std::unique_ptr<ControlRenderer> makeTextBox(FormPage& page, Control& control) {
  const auto* box = dynamic_cast<TextBox*>(&control);
  return box && box->Change.hasListeners() ? make<TextInputRenderer, TextBox>(page, control) : make<TextBoxRenderer, TextBox>(page, control);
}

struct ByClass {
  std::string_view className;
  Make make;
};
struct ByKind {
  Control::Kind kind;
  Make make;
};

// clang-format off
constexpr ByClass kByClass[] = {
    {"CtrAnyEdit", make<MarksRenderer, NestedControl>},
    {"Slider",     make<SliderRenderer, Slider>},
};

// An option edit is shown by other controls, a picture box holds others together, and what has no data and no name above is not
// to be seen.
constexpr ByKind kByKind[] = {
    {Control::Kind::Label,         make<LabelRenderer,         CaptionedControl>},
    {Control::Kind::DateLabel,     make<DateLabelRenderer,     CaptionedControl>},
    {Control::Kind::TextBox,       makeTextBox},
    {Control::Kind::CheckBox,      make<CheckBoxRenderer,      CheckBox>},
    {Control::Kind::OptionButton,  make<OptionButtonRenderer,  OptionButton>},
    {Control::Kind::CommandButton, make<CommandButtonRenderer, CommandButton>},
    {Control::Kind::Chart,         make<ChartRenderer,         Chart>},
    {Control::Kind::ListView,      make<ListViewRenderer,      ListView>},
    {Control::Kind::TextEdit,      make<LineEditRenderer,      EditControl>},
    {Control::Kind::DateEdit,      make<LineEditRenderer,      EditControl>},
    {Control::Kind::TimeEdit,      make<LineEditRenderer,      EditControl>},
    {Control::Kind::ComboEdit,     make<ComboEditRenderer,     CtrComboEdit>},
    {Control::Kind::CheckEdit,     make<CheckEditRenderer,     CtrCheckEdit>},
    {Control::Kind::Nested,        make<NestedRenderer,        NestedControl>},
};
// clang-format on

}  // namespace

std::unique_ptr<ControlRenderer> makeRenderer(FormPage& page, Control& control) {
  std::unique_ptr<ControlRenderer> renderer;
  for (const ByClass& entry : kByClass)
    if (!renderer && entry.className == control.className()) renderer = entry.make(page, control);
  const Control::Kind kind = control.kind();
  for (const ByKind& entry : kByKind)
    if (!renderer && entry.kind == kind) renderer = entry.make(page, control);
  return renderer ? std::move(renderer) : std::make_unique<ControlRenderer>(page, control);
}

}  // namespace ostrand
