#include "platform/controls/CtrModuleSelection.h"

#include <algorithm>

#include "platform/base/NumberText.h"
#include "platform/base/RuntimeError.h"
#include "platform/controls/Form.h"
#include "platform/types/Query.h"
#include "platform/xml/Vocabulary.h"

namespace ostrand {

namespace {

constexpr int kMostBytes = 244;  // that a slave exchanges in one cycle

}  // namespace

void CtrModuleSelection::declare(Form& form) {
  FrameForm rows = form.rows();
  rows.heads(lblHeads.at(0), "functionModule", {{&lblHeads.at(1), "moduleChoice"}, {&lblHeads.at(2), "cyclicBytes"}});
  for (int row = 0; row < kModules; ++row) rows.row(lblModule.at(row), "", cceModule.at(row), "").cell(lblBytes.at(row), "");
  rows.labelled(lblTotal, "cyclicBytesTotal").skip().cell(lblTotalBytes, "");
}

void CtrModuleSelection::connect() {
  for (int row = 0; row < kModules; ++row) {
    cceModule(row).Change.connect([this](const std::string&) { showCosts(); });
    cceModule(row).LostFocus.connect([this, row] { leave(row); });
  }
}

void CtrModuleSelection::initialize() {
  for (int row = 0; row < kModules; ++row) showRow(row, false);
}

void CtrModuleSelection::terminate() {
  cceModule.each([](int, CtrComboEdit& choice) { choice.detach(); });
  mMappings = {};
  Panel::terminate();
}

void CtrModuleSelection::SetMessenger(const Ref<Messenger>& messenger) {
  Procedure proc(*this, "ITaviComponent_SetMessenger", messenger);
  Panel::SetMessenger(messenger);
  cceModule.each([&](int, CtrComboEdit& choice) { proc.step([&] { choice.SetMessenger(proc.pinnedMessenger()); }); });
}

void CtrModuleSelection::Localize(const Ref<ITextTable>& textTable) {
  Procedure proc(*this, "ILocalizable_Localize");
  mTextTable = textTable;
  if (!textTable) return;
  for (Control* const control : controls())
    if (auto* const caption = dynamic_cast<Label*>(control); caption && !caption->Tag().empty())
      proc.step([&] { caption->Caption(label(caption->Tag())); });
  cceModule.each([&](int, CtrComboEdit& choice) { proc.step([&] { choice.Localize(textTable); }); });
}

void CtrModuleSelection::RequestFocus() {
  Procedure proc(*this, "ITaviView_RequestFocus");
  if (mCount > 0) proc.step([&] { cceModule(0).SetFocus(); });
}

void CtrModuleSelection::leave(int row) {
  Procedure proc(*this, "cceModule_LostFocus");
  const bool first = row == 0, last = row == mCount - 1;
  if (!first && !last) return;
  const TabPosition position = first && last ? TabPosition::Only : first ? TabPosition::First : TabPosition::Last;
  proc.step([&] { tabStep(desktop(), proc.messenger(), position); });
}

// --- documents

void CtrModuleSelection::SetOfflineData(const Document& doc) {
  Procedure proc(*this, "ITaviDataUser_setOfflineData");
  int row = 0;
  proc.step([&] {
    const Node modules = group(doc, tag());
    for (Node each = modules ? modules.firstChild() : Node(); each; each = each.nextSibling()) {
      const std::string name(each.findAttribute("name").value_or(""));
      if (name.empty() || !parameter(doc, name)) continue;
      if (row == kModules) throw RuntimeError(RuntimeError::OutOfRange, "there is no row for the function module " + name);
      bind(row++, doc, name);
    }
  });
  mCount = row;
  cceModule.each([&](int at, CtrComboEdit&) { proc.step([&] { showRow(at, at < mCount); }); });
  proc.step([&] { showCosts(); });
}

void CtrModuleSelection::bind(int row, const Document& doc, const std::string& name) {
  mMappings[static_cast<std::size_t>(row)] = mappingByTail(doc, name);
  lblModule(row).Tag(name);
  lblModule(row).Caption(label(name));
  CtrComboEdit& choice = cceModule(row);
  choice.Tag("ctr_" + name);
  choice.ContextTag(homeGroup(doc, name));
  choice.SetMappings(mMappings[static_cast<std::size_t>(row)]);
  choice.setOfflineData(parameter(doc, name));
}

void CtrModuleSelection::SetOnlineData(const Document& doc) {
  Procedure proc(*this, "ITaviDataUser_setOnlineData");
  for (int row = 0; row < mCount; ++row)
    proc.step([&] {
      if (const Node answered = item(doc, cceModule(row).parameterName())) cceModule(row).SetOnlineData(answered);
    });
}

void CtrModuleSelection::SetErrorData(const Document& doc) {
  Procedure proc(*this, "ITaviDataUser_setErrorData");
  proc.step([&] {
    const Node answer = response(doc);
    if (!answer || answer.findAttribute("name") != tag()) return;
    const std::string code(answer.findAttribute("errorCode").value_or(""));
    const bool namesNone = !answer.child("comm:item");
    for (int row = 0; row < mCount; ++row)
      if (namesNone || item(doc, cceModule(row).parameterName())) cceModule(row).handleError(code);
  });
}

// --- what the choice costs

int CtrModuleSelection::bytesOf(int row) const {
  const Node choices = mMappings[static_cast<std::size_t>(row)];
  const std::string& key = cceModule(row).Text();
  for (Node choice = choices ? choices.firstChild() : Node(); choice; choice = choice.nextSibling())
    if (choice.findAttribute("key") == key) {
      const double bytes = parseNumber(choice.findAttribute("bytes").value_or(""), '.').value_or(0);
      return bytes > 0 && bytes <= kMostBytes ? static_cast<int>(bytes) : 0;
    }
  return 0;
}

int CtrModuleSelection::cyclicBytes() const {
  int sum = 0;
  for (int row = 0; row < mCount; ++row) sum += bytesOf(row);
  return sum;
}

void CtrModuleSelection::showCosts() {
  for (int row = 0; row < mCount; ++row) lblBytes(row).Caption(std::to_string(bytesOf(row)));
  lblTotalBytes.Caption(mCount > 0 ? std::to_string(cyclicBytes()) : std::string());
}

void CtrModuleSelection::showRow(int row, bool shown) {
  lblModule(row).Visible(shown);
  cceModule(row).Visible(shown);
  lblBytes(row).Visible(shown);
}

}  // namespace ostrand
