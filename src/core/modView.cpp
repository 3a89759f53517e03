#include "core/modView.h"

#include <optional>

#include "core/modTools.h"
#include "platform/base/Procedure.h"
#include "platform/controls/ListView.h"
#include "platform/controls/StatusWords.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Value.h"

namespace ostrand::modView {

namespace {

using Kind = Control::Kind;

constexpr int kLogControl = 67;  // "C"
constexpr int kLogMapping = 77;  // "M"
constexpr std::size_t kPrefixLength = 5;  // of "date_"

template <class F>
void silently(F&& body) {
  try {
    body();
  } catch (...) {
    // A control that fails here leaves the walk running and is not told of.
  }
}

bool isPlain(Kind kind) { return kind < Kind::TextEdit; }
bool isEdit(Kind kind) { return kind >= Kind::TextEdit && kind < Kind::DateLabel; }
bool isChoice(Kind kind) { return kind == Kind::ComboEdit || kind == Kind::CheckEdit || kind == Kind::OptionEdit; }

// The parameter that a control's tag names; empty if the control is not bound. Reading the tag may fail.
std::string_view boundName(Procedure& proc, const Control& control) {
  std::string_view name;
  proc.step([&] {
    control.Tag();
    name = control.parameterName();
  });
  return name;
}

void callDataUser(Control& control, const char* operation, const Document& doc, void (ITaviDataUser::*member)(const Document&)) {
  callObject(control, control.dataUser(), operation, " document", [&](ITaviDataUser& user) { (user.*member)(doc); });
}

// The text behind the first five characters of a date label's tag.
std::string groupName(const Control& label) {
  const std::string& tag = label.Tag();
  return tag.size() > kPrefixLength ? tag.substr(kPrefixLength) : std::string();
}

std::optional<std::string> stampOf(const Document& doc, const std::string& groupName) {
  const Node found = group(doc, groupName);
  if (!found) return std::nullopt;
  const auto stamp = found.findAttribute("lastUpdate");
  return stamp ? std::optional<std::string>(*stamp) : std::nullopt;
}

// By name: what its class name alone makes a date label may be of any class.
void setCaption(Control& control, std::string caption) { control.set("Caption", {}, std::move(caption)); }

// Several controls may share a mapping that is named by a tail of their parameter's name, so what follows
// each capital or digit of the tag is tried from the end on. `cut` leaves out a tail behind "_"; it belongs
// to the whole walk and is not set back, so a tag with such a tail shortens the searches after it.
Node findMapping(Procedure& proc, const Document& doc, const Control& control, std::size_t& cut) {
  const std::string tag(control.Tag());
  const std::string name(control.parameterName());
  Node found = proc.value(Node(), [&] { return mapping(doc, name); });
  if (found) return found;
  proc.step([&] { proc.messenger().Log(kLogMapping, "Parsing " + tag); });
  const std::size_t length = tag.size();
  for (std::size_t i = length; i >= kPrefixLength; --i) {
    const char c = tag[i - 1];
    const bool lower = c >= 'a' && c <= 'z';
    if (lower && i != kPrefixLength) continue;
    if (c == '_') cut = length - i + 1;
    if (length <= i + cut) continue;
    std::string candidate = tag.substr(i - 1, length - i - cut + 1);
    if (c >= 'A' && c <= 'Z') candidate[0] = static_cast<char>(c - 'A' + 'a');
    found = proc.value(Node(), [&] { return mapping(doc, candidate); });
    if (!found) continue;
    proc.step([&] { proc.messenger().Log(kLogMapping, candidate + " working"); });
    break;
  }
  return found;
}

}  // namespace

void Localize(Component& view, const Ref<ITextTable>& textTable) {
  Procedure proc(view.reportingTo(), view.lastError(), "modView Localize: ");
  const auto text = [&](std::string (ITextTable::*member)(const std::string&), const std::string& key) {
    return proc.value(std::string(), [&] {
      if (!textTable) throwNothingThere("the text table");
      return ((*textTable).*member)(key);
    });
  };
  for (Control* control : view.controls()) {
    const Kind kind = control->kind();
    const std::string tag = proc.value(std::string(), [&] { return control->Tag(); });
    switch (kind) {
      case Kind::Label:
      case Kind::CheckBox:
      case Kind::OptionButton:
      case Kind::CommandButton: {
        if (tag.empty()) break;
        const std::string caption = text(&ITextTable::GetLabel, tag);
        proc.step([&] { setCaption(*control, caption); });
        break;
      }
      case Kind::TextBox: {
        if (tag.empty() || tag.starts_with("ctr_")) break;
        const std::string shown = text(&ITextTable::GetText, tag);
        proc.step([&] { static_cast<TextBox&>(*control).Text(shown); });
        break;
      }
      case Kind::ListView: {
        auto& list = static_cast<ListView&>(*control);
        for (int column = 1; column <= list.ColumnCount(); ++column) {
          if (list.HeaderTag(column).empty()) continue;
          const std::string header = text(&ITextTable::GetText, list.HeaderTag(column));
          proc.step([&] { list.Header(column, header); });
        }
        break;
      }
      case Kind::Frame:
      case Kind::PictureBox:
      case Kind::NoData:
      case Kind::DateLabel: break;
      default:
        silently([&] {
          if (ILocalizable* object = control->localizable())
            callObject(*control, object, "Localize", "", [&](ILocalizable& localizable) { localizable.Localize(textTable); });
        });
    }
  }
}

void setMessenger(Component& view, const Ref<Messenger>& messenger) {
  Procedure proc(view.reportingTo(), view.lastError(), "modView setMessenger: ");
  for (Control* control : view.controls()) {
    const Kind kind = control->kind();
    if (isPlain(kind) || kind == Kind::DateLabel) continue;
    silently([&] {
      if (ITaviComponent* object = control->component())
        callObject(*control, object, "SetMessenger", "", [&](ITaviComponent& component) { component.SetMessenger(messenger); });
    });
  }
}

void setImportData(Component& view, const Document& doc) {
  Procedure proc(view.reportingTo(), view.lastError(), "modView setImportData: ");
  for (Control* control : view.controls()) {
    const Kind kind = control->kind();
    if (isPlain(kind)) continue;
    if (kind == Kind::DateLabel) {
      proc.step([&] {
        if (auto stamp = stampOf(doc, groupName(*control))) setCaption(*control, *stamp);
      });
    } else if (const std::string_view name = isEdit(kind) ? boundName(proc, *control) : std::string_view(); !name.empty()) {
      const Node node = proc.value(Node(), [&] { return parameter(doc, name); });
      proc.step([&] { control->setImportData(node); });
    } else if (control->dataUser()) {
      proc.step([&] { callDataUser(*control, "SetImportData", doc, &ITaviDataUser::SetImportData); });
    }
  }
}

void setOfflineData(Component& view, const Document& doc) {
  Procedure proc(view.reportingTo(), view.lastError(), " modView setOfflineData");
  std::size_t cut = 0;
  for (Control* control : view.controls()) {
    const Kind kind = control->kind();
    if (isPlain(kind)) continue;
    if (kind == Kind::DateLabel) {
      proc.step([&] {
        if (auto stamp = stampOf(doc, groupName(*control))) setCaption(*control, modTools::LocalizeDatafileDate(*stamp, view.desktop()));
      });
    } else if (const std::string_view name = isEdit(kind) ? boundName(proc, *control) : std::string_view(); !name.empty()) {
      if (isChoice(kind)) {
        const Node choices = proc.value(Node(), [&] { return findMapping(proc, doc, *control, cut); });
        proc.step([&] { control->SetMappings(choices); });
      }
      const Node node = proc.value(Node(), [&] { return parameter(doc, name); });
      proc.step([&] {
        if (kind != Kind::TextEdit || control->ContextTag().empty()) control->ContextTag(modTools::groupOfParameter(doc, name));
      });
      proc.step([&] { control->setOfflineData(node); });
    } else if (control->dataUser()) {
      silently([&] { callDataUser(*control, "SetOfflineData", doc, &ITaviDataUser::SetOfflineData); });
    }
  }
}

void setOnlineData(Component& view, const Document& doc) {
  Procedure proc(view.reportingTo(), view.lastError(), "modView setOnlineData: ");
  const Node answer = proc.value(Node(), [&] { return response(doc); });
  const std::string answerName = proc.value(std::string(), [&] { return std::string(answer.attribute("name")); });
  const auto itemNamed = [&](std::string_view name) { return proc.value(Node(), [&] { return item(doc, name); }); };
  for (Control* control : view.controls()) {
    const Kind kind = control->kind();
    if (kind == Kind::TextBox) {
      if (const std::string_view name = boundName(proc, *control); !name.empty()) {
        const Node node = itemNamed(name);
        proc.step([&] {
          if (const Node text = node ? node.child("comm:stringVal") : Node()) static_cast<TextBox&>(*control).Text(text.text());
        });
      }
    } else if (isPlain(kind)) {
      continue;
    } else if (kind == Kind::DateLabel) {
      proc.step([&] {
        if (control->Tag().starts_with("date_") && groupName(*control) == answerName) setCaption(*control, modTools::presentDateAndTime(view.desktop()));
      });
    } else if (const std::string_view name = isEdit(kind) ? boundName(proc, *control) : std::string_view(); !name.empty()) {
      const Node node = itemNamed(name);
      bool local = false;
      // The status is read anew for each text edit: an answer without one is reported as often.
      if (kind == Kind::TextEdit) proc.step([&] { local = answer.attribute("responseStatus") == "local"; });
      proc.step([&] {
        if (local)
          control->setLocalData(node);
        else
          control->SetOnlineData(node);
      });
    } else if (control->dataUser()) {
      proc.step([&] { callDataUser(*control, "SetOnlineData", doc, &ITaviDataUser::SetOnlineData); });
    }
  }
}

namespace {

enum class ErrorGroup { TextEdits, AllEdits, LoggedOnly, MessageOnly };

ErrorGroup groupOfError(std::string_view key) {
  if (key == "missingItems" || key == "commandIsNotImplemented") return ErrorGroup::TextEdits;
  if (key == "communicationError" || key == "errCommunicationError" || key == "hartCmdErrSuspiciousCalibration" ||
      key == "hartCmdErrRecipeNotCalibratedOrPulpTypeNotAllowed")
    return ErrorGroup::AllEdits;
  if (key == "hartCmdErrNoDataAvailable" || key == "errTestDataNoDataError") return ErrorGroup::LoggedOnly;
  return ErrorGroup::MessageOnly;
}

bool takesError(Kind kind, ErrorGroup group) {
  if (kind == Kind::TextEdit) return true;
  return group == ErrorGroup::AllEdits && (kind == Kind::ComboEdit || kind == Kind::DateEdit || kind == Kind::OptionEdit);
}

void showErrorMessage(Procedure& proc, const std::string& key, const std::vector<Node>& items) {
  const Ref<ITextTable> texts = proc.value(Ref<ITextTable>(), [&] { return proc.messenger().GetTextTable(); });
  const auto text = [&](const std::string& of) {
    return proc.value(std::string(), [&] {
      if (!texts) throwNothingThere("the text table");
      return texts->GetText(of);
    });
  };
  std::string message = text(key) + "\r\n";
  for (const Node& item : items) message += "\"" + std::string(item.attribute("name")) + "\"\r\n";
  const std::string title = text("error");
  proc.step([&] { proc.messenger().ShowMessage(title, message); });
}

}  // namespace

void setErrorData(Component& view, const Document& doc) {
  Procedure proc(view.reportingTo(), view.lastError(), "modView setErrorData: ");
  const std::string answerName = proc.value(std::string(), [&] { return std::string(response(doc).attribute("name")); });
  for (Control* control : view.controls()) {
    if (!control->dataUser()) continue;
    // A tag that holds the answer's name, be it as a mere part, says that the control owns the request.
    const bool owns = proc.value(false, [&] { return control->Tag().find(answerName) != std::string::npos; });
    if (!owns && !control->view()) continue;
    proc.step([&] { callDataUser(*control, "SetErrorData", doc, &ITaviDataUser::SetErrorData); });
    if (owns) return;
  }

  std::string key;
  std::vector<Node> items;
  proc.step([&] {
    if (const Node failed = doc.select("//comm:communicationResponse[@errorCode]")) key = failed.attribute("errorCode");
  });
  proc.step([&] { items = doc.selectAll("//comm:item[@name!=\"testStatus\"]"); });

  const ErrorGroup group = groupOfError(key);
  if (group == ErrorGroup::LoggedOnly) {
    proc.step([&] { proc.messenger().Log(kLogControl, "Error: Graph error not reaching its graph " + answerName); });
    return;
  }
  if (group != ErrorGroup::MessageOnly)
    for (const Node& item : items)
      for (Control* control : view.controls())
        if (takesError(control->kind(), group))
          proc.step([&] {
            if (control->Tag() == "ctr_" + std::string(item.attribute("name"))) control->handleError(key);
          });
  showErrorMessage(proc, key, items);
}

void forwardSyncChanges(const std::string& name, bool succeeded, std::string& status, const Ref<Messenger>& messenger) {
  Procedure proc(messenger, nullptr, "modView forwardSyncChanges");
  proc.step([&] { ostrand::forwardSyncChanges(name, succeeded, status, messenger.get()); });
}

std::string selectView(Procedure& proc, const std::string& name, const std::string& ownTag, const std::vector<Control*>& views) {
  if (name == ownTag) {
    std::string key;
    proc.step([&] {
      if (views.empty()) throw RuntimeError(RuntimeError::OutOfRange, "there is no item to select");
      views.front()->ZOrder(0);
      key = views.front()->Tag();
    });
    return key;
  }
  for (Control* item : views) {
    const bool matches = proc.value(false, [&] {
      if (!item->Object()) return item->Tag() == name;
      ITaviView* const nested = item->view();
      if (!nested) return false;
      callObject(*item, nested, "SetSelectedView", " " + inQuotes(name), [&](ITaviView& view) { view.SetSelectedView(name); });
      std::string selected;
      callObject(*item, nested, "GetSelectedView", "", [&](ITaviView& view) { selected = view.GetSelectedView(); });
      return selected == name;
    });
    if (!matches) continue;
    proc.step([&] { item->ZOrder(0); });
    return name;
  }
  return {};
}

}  // namespace ostrand::modView
