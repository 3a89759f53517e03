#pragma once

#include <functional>
#include <map>
#include <string>

#include "host/ComponentSource.h"
#include "host/HostObject.h"
#include "host/transcript/TranscriptPlayer.h"
#include "platform/base/RuntimeError.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/CtrCheckEdit.h"
#include "platform/controls/CtrComboEdit.h"
#include "platform/controls/CtrDateEdit.h"
#include "platform/controls/CtrGraphMenu.h"
#include "platform/controls/CtrMonitoring.h"
#include "platform/controls/CtrOptionEdit.h"
#include "platform/controls/CtrTextEdit.h"
#include "platform/controls/Form.h"
#include "platform/controls/ListView.h"
#include "platform/controls/Slider.h"
#include "platform/types/ITaviDeviceSpecific.h"
#include "support/TestView.h"

namespace ostrand::test {

// A chart whose second button does nothing.
class TestChart : public Chart {
 public:
  using Chart::Chart;
  void menu() override { throw RuntimeError(RuntimeError::PermissionDenied, "the chart is covered"); }
};

// A component that is no view: two pictures.
class TestPicture : public HostObject<IPlaceable, ITaviDeviceSpecific> {
 public:
  void Place(Desktop&, const Ref<IHostContainer>&, const std::string&) override {}
  void Resize(int, int) override {}
  void Terminate() override {}
  Picture GetDeviceImage(const std::string&) override { return {640, 480, ""}; }
  Picture GetDeviceLogo(const std::string& argument) override { return {16, 8, argument}; }
};

// Views with one control of each kind. What the user does is logged; a button does what its caption says.
class TestComponents : public ComponentSource {
 public:
  Ref<IObject> create(const std::string& className) override {
    if (className == "TestPicture") return Ref<IObject>(static_cast<IPlaceable*>(new TestPicture));
    if (className != "TestPanel") throw RuntimeError(RuntimeError::BadArgument, "no such component class: \"" + className + "\"");
    ++made;
    const Ref<TestView> view = TestView::unplaced([this](TestView& at, Form& form) { declare(at, form); });
    return Ref<IObject>(static_cast<IPlaceable*>(view.get()));
  }

  int made = 0;
  // Whether a view logs the values that it receives, by the number of the view.
  bool listens = false;
  // What a button does when it is clicked.
  std::map<std::string, std::function<void(TestView&)>> actions;

 private:
  void declare(TestView& view, Form& form) {
    const auto log = [&view](const std::string& text) {
      if (view.mMessenger) view.mMessenger->Log(77, text);
    };
    auto& text = view.make<CtrTextEdit>("cteText(0)");
    auto& combo = view.make<CtrComboEdit>("cceCombo");
    auto& check = view.make<CtrCheckEdit>("cckCheck");
    auto& date = view.make<CtrDateEdit>("cdeDate");
    auto& option = view.make<CtrOptionEdit>("coeOption");
    auto& box = view.make<CheckBox>("chkBox");
    auto& slider = view.make<Slider>("sldSlider");
    auto& list = view.make<ListView>("lsvList");
    auto& button = view.make<CommandButton>("cmdButton");
    auto& chart = view.make<TestChart>("picChart");
    auto& nested = view.make<Nested<CtrMonitoring>>("CtrMonitoring1");
    view.frame(form, "first", "date_first")
        .row(view.make<Label>("lblText"), "text", text, "ctr_text")
        .row(combo, "ctr_combo")
        .row(check, "ctr_check")
        .row(date, "ctr_date")
        .hidden(option, "ctr_option")
        .row(box, "box")
        .row(slider, "slider")
        .button(button, "nothing", "Nothing");
    view.frame(form, "second", "date_second").row(list, "list").row(chart, "chart").hidden(view.make<CtrGraphMenu>("cgmMenu"), "");
    form.nested(nested, "monitoringVariables");
    view.mFocusOn = {{"first", &text}, {"monitoringVariables", &nested}};

    text.LostFocus.connect([&view] { view.leaveByTab("cteText_LostFocus", modView::TabPosition::First); });
    box.Click.connect([log, &box] { log(box.Value() ? "box on" : "box off"); });
    slider.Change.connect([log, &slider] { log("slider at " + std::to_string(slider.Value())); });
    list.ItemCheck.connect([log, &list](int row) { log("row " + std::to_string(row) + (list.Checked(row) ? " on" : " off")); });
    list.AfterLabelEdit.connect([log](int row, const std::string& typed) { log("row " + std::to_string(row) + ": " + typed); });
    list.AddColumn("name", 1000);
    list.AddColumn("value", 2000);
    list.AddRow();
    list.Cell(1, 2, "cell");
    list.CellColor(1, 2, Color::errorText());
    chart.DataHotSpot.connect([log](bool twice, int series, int point) {
      log("hotspot " + std::to_string(series) + " " + std::to_string(point) + (twice ? " twice" : ""));
    });
    chart.SeriesStyle(0, Chart::Style::Marks);
    if (listens)
      view.received = [log, name = made == 1 ? "one" : "two"](const std::string& tag, const std::string& value) {
        if (tag == "throw") throw RuntimeError(RuntimeError::NotConvertible, name);
        log(name + std::string(" hears ") + tag + " " + value);
      };
    button.Click.connect([this, &view, &button] {
      const auto action = actions.find(button.Tag());
      if (action != actions.end()) action->second(view);
    });
  }
};

}  // namespace ostrand::test
