#pragma once

#include <string>
#include <vector>

#include "platform/controls/Component.h"
#include "platform/controls/TabStep.h"
#include "platform/xml/Document.h"

// The engine of the views. What binds a control to a value is its Tag: "ctr_" + parameter name on edits and
// text boxes, "date_" + group name on date labels, any other text a key of the text table. The walks go
// through a component's controls in their order and hand each the node that its tag names; a nested
// component gets the whole document. Every walk reports a failure and goes on with its next step, so one
// bad control costs only itself.
namespace ostrand::modView {

void Localize(Component& view, Ref<ITextTable> textTable);
void setMessenger(Component& view, Ref<Messenger> messenger);

void setImportData(Component& view, Document doc);
void setOfflineData(Component& view, Document doc);
void setOnlineData(Component& view, Document doc);
void setErrorData(Component& view, Document doc);

// One reading of the value or group `name`: moves its sync word and tells the host.
void forwardSyncChanges(const std::string& name, bool succeeded, std::string& status, const Ref<Messenger>& messenger);

// Brings the item with this key to front, asking nested views in their turn; `ownTag` selects the first
// item. The result is the key of the item, or empty if nothing matched.
std::string selectView(Procedure& proc, const std::string& name, const std::string& ownTag, const std::vector<Control*>& views);

using ostrand::TabPosition;
using ostrand::tabStep;

// Calls an operation of an interface of a control's Object.
template <class I, class F>
void callObject(Control& control, I* object, std::string_view operation, const std::string& arguments, F&& call) {
  control.announce(operation, arguments);
  const Ref<I> pin(object);
  if (!pin) throwNothingThere("the Object");
  call(*pin);
}

}  // namespace ostrand::modView
