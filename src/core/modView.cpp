#include "core/modView.h"

#include <optional>
#include <unordered_set>

#include "core/modTools.h"
#include "platform/controls/ListView.h"
#include "platform/controls/StatusWords.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Value.h"
#include "platform/trap/Procedure.h"

namespace ostrand::modView {

namespace {

using Kind = Control::Kind;

constexpr int kLogControl = 67;           // "C"
constexpr int kLogMapping = 77;           // "M"
constexpr std::size_t kPrefixLength = 5;  // of "date_"

template <class F>
void silently(F&& body) {
  try {
    body();
  } catch (...) {
    // A control that fails here leaves the walk running and is not told of.
  }
}

// A walk waits for memory more than for anything else: while one control takes its value, another is on its way to the
// processor. A hint and no more; an edit is about so large.
void fetch(const Control* control) {
  constexpr int kBytes = 832, kLine = 64;
  for (int at = 0; at < kBytes; at += kLine) __builtin_prefetch(reinterpret_cast<const char*>(control) + at);
}

// A class that cannot be told costs its own control.
template <class Do>
void eachControl(Procedure& proc, const Component& view, Do body) {
  constexpr std::size_t kAhead = 2;
  const ControlCollection& controls = view.controls();
  for (std::size_t i = 0; i < controls.size(); ++i) {
    if (i + kAhead < controls.size()) fetch(controls[i + kAhead]);
    Kind kind{};
    if (proc.step([&] { kind = controls[i]->kind(); })) body(*controls[i], kind);
  }
}

// The parameter that a control's tag names; false if the control is not bound, or if its tag cannot be read. A copy, in a
// buffer that serves a whole walk: every call to the host may bring another tag.
bool readName(Procedure& proc, const Control& control, std::string& name) {
  name.clear();
  proc.step([&] {
    control.Tag();
    name = control.parameterName();
  });
  return !name.empty();
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
Node findMapping(Procedure& proc, const Document& doc, const std::string& name, std::size_t& cut) {
  Node found = proc.value(Node(), [&] { return mapping(doc, name); });
  if (found) return found;
  const std::string tag = "ctr_" + name;
  proc.step([&] { proc.messenger().Log(kLogMapping, "Parsing " + tag); });
  const std::size_t length = tag.size();
  std::string candidate;
  for (std::size_t i = length; i >= kPrefixLength; --i) {
    const char c = tag[i - 1];
    const bool lower = c >= 'a' && c <= 'z';
    if (lower && i != kPrefixLength) continue;
    if (c == '_') cut = length - i + 1;
    if (length <= i + cut) continue;
    candidate.assign(tag, i - 1, length - i - cut + 1);
    if (c >= 'A' && c <= 'Z') candidate[0] = static_cast<char>(c - 'A' + 'a');
    found = proc.value(Node(), [&] { return mapping(doc, candidate); });
    if (!found) continue;
    proc.step([&] { proc.messenger().Log(kLogMapping, candidate + " working"); });
    break;
  }
  return found;
}

}  // namespace

void Localize(Component& view, Ref<ITextTable> textTable) {
  Procedure proc(view.reportingTo(), view.lastError(), "modView Localize: ");
  const auto texts = [&]() -> ITextTable& {
    if (!textTable) throwNothingThere("the text table");
    return *textTable;
  };
  // To get a text and to show it is one statement: what cannot be had leaves the old one standing.
  eachControl(proc, view, [&](Control& control, Kind kind) {
    switch (kind) {
      case Kind::Label:
      case Kind::CheckBox:
      case Kind::OptionButton:
      case Kind::CommandButton:
        proc.step([&] {
          if (const std::string tag = control.Tag(); !tag.empty()) setCaption(control, texts().GetLabel(tag));
        });
        break;
      case Kind::TextBox:
        proc.step([&] {
          if (const std::string tag = control.Tag(); !tag.empty() && !tag.starts_with("ctr_"))
            static_cast<TextBox&>(control).Text(texts().GetText(tag));
        });
        break;
      case Kind::ListView: {
        auto& list = static_cast<ListView&>(control);
        for (int column = 1; column <= list.ColumnCount(); ++column)
          proc.step([&] {
            if (const std::string tag = list.HeaderTag(column); !tag.empty()) list.Header(column, texts().GetText(tag));
          });
        break;
      }
      case Kind::Frame:
      case Kind::PictureBox:
      case Kind::Chart:
      case Kind::NoData:
      case Kind::DateLabel: break;
      default:
        silently([&] {
          if (ILocalizable* object = control.localizable())
            callObject(control, object, "Localize", "", [&](ILocalizable& localizable) { localizable.Localize(textTable); });
        });
    }
  });
}

void setMessenger(Component& view, Ref<Messenger> messenger) {
  Procedure proc(view.reportingTo(), view.lastError(), "modView setMessenger: ");
  eachControl(proc, view, [&](Control& control, Kind kind) {
    if (isPlain(kind) || kind == Kind::DateLabel) return;
    silently([&] {
      if (ITaviComponent* object = control.component())
        callObject(control, object, "SetMessenger", "", [&](ITaviComponent& component) { component.SetMessenger(messenger); });
    });
  });
}

void setImportData(Component& view, Document doc) {
  Procedure proc(view.reportingTo(), view.lastError(), "modView setImportData: ");
  std::string name;
  eachControl(proc, view, [&](Control& control, Kind kind) {
    if (isPlain(kind)) return;
    if (kind == Kind::DateLabel) {
      proc.step([&] {
        if (auto stamp = stampOf(doc, groupName(control))) setCaption(control, *stamp);
      });
    } else if (isEdit(kind) && readName(proc, control, name)) {
      const Node node = proc.value(Node(), [&] { return parameter(doc, name); });
      proc.step([&] { control.setImportData(node); });
    } else if (control.dataUser()) {
      proc.step([&] { callDataUser(control, "SetImportData", doc, &ITaviDataUser::SetImportData); });
    }
  });
}

void setOfflineData(Component& view, Document doc) {
  Procedure proc(view.reportingTo(), view.lastError(), " modView setOfflineData");
  std::size_t cut = 0;
  std::string name;
  eachControl(proc, view, [&](Control& control, Kind kind) {
    if (isPlain(kind)) return;
    if (kind == Kind::DateLabel) {
      proc.step([&] {
        if (auto stamp = stampOf(doc, groupName(control))) setCaption(control, modTools::LocalizeDatafileDate(*stamp, view.desktop()));
      });
    } else if (isEdit(kind) && readName(proc, control, name)) {
      if (isChoice(kind)) {
        const Node choices = proc.value(Node(), [&] { return findMapping(proc, doc, name, cut); });
        proc.step([&] { control.SetMappings(choices); });
      }
      const Node node = proc.value(Node(), [&] { return parameter(doc, name); });
      proc.step([&] {
        if (kind != Kind::TextEdit || control.ContextTag().empty()) control.ContextTag(modTools::groupOfParameter(doc, name));
      });
      proc.step([&] { control.setOfflineData(node); });
    } else if (control.dataUser()) {
      silently([&] { callDataUser(control, "SetOfflineData", doc, &ITaviDataUser::SetOfflineData); });
    }
  });
}

void setOnlineData(Component& view, Document doc) {
  Procedure proc(view.reportingTo(), view.lastError(), "modView setOnlineData: ");
  const Node answer = proc.value(Node(), [&] { return response(doc); });
  const std::string answerName = proc.value(std::string(), [&] { return std::string(answer.attribute("name")); });
  std::string name;
  const auto itemOfName = [&] { return proc.value(Node(), [&] { return item(doc, name); }); };
  eachControl(proc, view, [&](Control& control, Kind kind) {
    if (kind == Kind::TextBox) {
      if (!readName(proc, control, name)) return;
      const Node node = itemOfName();
      proc.step([&] {
        if (const Node text = node ? node.child("comm:stringVal") : Node()) static_cast<TextBox&>(control).Text(text.text());
      });
    } else if (isPlain(kind)) {
      return;
    } else if (kind == Kind::DateLabel) {
      proc.step([&] {
        if (control.Tag().starts_with("date_") && groupName(control) == answerName) setCaption(control, modTools::presentDateAndTime(view.desktop()));
      });
    } else if (isEdit(kind) && readName(proc, control, name)) {
      const Node node = itemOfName();
      bool local = false;
      // The status is read anew for each text edit: an answer without one is reported as often.
      if (kind == Kind::TextEdit) proc.step([&] { local = answer.attribute("responseStatus") == "local"; });
      proc.step([&] {
        if (local)
          control.setLocalData(node);
        else
          control.SetOnlineData(node);
      });
    } else if (control.dataUser()) {
      proc.step([&] { callDataUser(control, "SetOnlineData", doc, &ITaviDataUser::SetOnlineData); });
    }
  });
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

void showErrorMessage(Procedure& proc, const std::string& key, const std::vector<std::string>& items) {
  const Ref<ITextTable> texts = proc.value(Ref<ITextTable>(), [&] { return proc.messenger().GetTextTable(); });
  const auto text = [&](const std::string& of) {
    return proc.value(std::string(), [&] {
      if (!texts) throwNothingThere("the text table");
      return texts->GetText(of);
    });
  };
  std::string message = text(key) + "\r\n";
  for (const std::string& item : items) message += "\"" + item + "\"\r\n";
  const std::string title = text("error");
  proc.step([&] { proc.messenger().ShowMessage(title, message); });
}

std::unordered_set<std::string> namesOf(const std::vector<Control*>& controls) {
  std::unordered_set<std::string> names;
  for (const Control* control : controls) names.emplace(control->parameterName());
  return names;
}

void strike(Procedure& proc, const Component& view, ErrorGroup group, const std::string& key, const std::vector<std::string>& items) {
  std::vector<Control*> taking;
  eachControl(proc, view, [&](Control& control, Kind kind) {
    if (takesError(kind, group)) taking.push_back(&control);
  });
  // Of a large answer most items belong to none of the controls.
  std::unordered_set<std::string> names = namesOf(taking);
  for (const std::string& item : items) {
    if (!names.contains(item)) continue;
    const std::string tag = "ctr_" + item;
    for (Control* control : taking)
      proc.step([&] {
        if (control->Tag() == tag) control->handleError(key);
      });
    names = namesOf(taking);  // the host has been called, and may have brought other tags
  }
}

}  // namespace

void setErrorData(Component& view, Document doc) {
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
  std::vector<std::string> items;
  proc.step([&] {
    if (const Node failed = doc.select("//comm:communicationResponse[@errorCode]")) key = failed.attribute("errorCode");
  });
  proc.step([&] {
    for (const Node& item : doc.selectAll("//comm:item[@name!=\"testStatus\"]")) items.emplace_back(item.attribute("name"));
  });

  const ErrorGroup group = groupOfError(key);
  if (group == ErrorGroup::LoggedOnly) {
    proc.step([&] { proc.messenger().Log(kLogControl, "Error: Graph error not reaching its graph " + answerName); });
    return;
  }
  if (group != ErrorGroup::MessageOnly) strike(proc, view, group, key, items);
  showErrorMessage(proc, key, items);
}

void forwardSyncChanges(const std::string& name, bool succeeded, std::string& status, const Ref<Messenger>& messenger) {
  Procedure proc(messenger, nullptr, "modView forwardSyncChanges");
  proc.step([&] { ostrand::forwardSyncChanges(name, succeeded, status, messenger); });
}

std::string selectView(Procedure& proc, const std::string& name, const std::string& ownTag, const std::vector<Control*>& views) {
  if (name == ownTag) {
    if (views.empty()) {
      proc.report({RuntimeError::OutOfRange, "there is no item to select"});
      return {};
    }
    proc.step([&] { views.front()->ZOrder(0); });
    return proc.value(std::string(), [&] { return views.front()->Tag(); });
  }
  for (Control* item : views) {
    bool matches = false;
    if (!item->Object()) {
      proc.step([&] { matches = item->Tag() == name; });
    } else if (ITaviView* const nested = item->view()) {
      proc.step([&] { callObject(*item, nested, "SetSelectedView", " " + inQuotes(name), [&](ITaviView& view) { view.SetSelectedView(name); }); });
      proc.step([&] { callObject(*item, nested, "GetSelectedView", "", [&](ITaviView& view) { matches = view.GetSelectedView() == name; }); });
    }
    if (!matches) continue;
    proc.step([&] { item->ZOrder(0); });
    return name;
  }
  return {};
}

}  // namespace ostrand::modView
