#include "host/transcript/TranscriptRecorder.h"

#include <gtest/gtest.h>

#include "host/HostBench.h"
#include "host/transcript/PlayerBench.h"
#include "host/transcript/RecordedComponents.h"

namespace ostrand::test {

namespace {

// A user who is asked, and does something meanwhile.
class ScriptedPrompt : public UserPrompt {
 public:
  int ask(const std::string&, const std::string&, const Answers&) override {
    if (meanwhile) std::exchange(meanwhile, nullptr)();
    return answer;
  }
  void show(const std::string&, const std::string&) override {}

  int answer = kGoOn;
  std::function<void()> meanwhile;
};

// A host with a recorded view before a device that answers when the test says so.
class TranscriptRecorderTest : public testing::Test {
 protected:
  TranscriptRecorderTest() : recorder(desktop), recorded(components, [this](const std::string&) -> TranscriptRecorder& { return recorder; }) {
    host.emplace(desktop, recorded, prompt, sourceData(), recorded.taps());
    host->setDataSet(smallDataSet());
    host->connect(std::make_unique<HandDevice>(asked));
  }
  ~TranscriptRecorderTest() override { site = nullptr; }

  void open() {
    recorder.language = "en";
    site = host->views().place("TestPanel", "test");
    host->views().open(*site, "first");
    button = dynamic_cast<CommandButton*>(findControl(site->view()->GetControls(), "cmdButton"));
  }
  // The user presses the button, after the view got something to do by it.
  void click(const std::string& action) {
    {
      const auto input = recorder.input("set cmdButton.Tag " + action);
      button->Tag(action);
    }
    const auto input = recorder.input("click cmdButton");
    button->click();
  }

  // What was recorded plays as it stands.
  void expectReplays() {
    const std::string text = recorder.text();
    const Transcript transcript = Transcript::parse(text, "recorded");
    const TranscriptComparison comparison(transcript, TranscriptPlayer(components, sourceData()).play(transcript));
    EXPECT_EQ(comparison.diff(), "") << text;
  }

  VirtualDesktop desktop;
  ScriptedPrompt prompt;
  TestComponents components;
  TranscriptRecorder recorder;
  RecordedComponents recorded;
  std::vector<HandDevice::Asked> asked;
  std::optional<Host> host;
  Ref<ViewSite> site;
  CommandButton* button = nullptr;
};

}  // namespace

TEST_F(TranscriptRecorderTest, TheLifeOfAViewIsInputs) {
  open();
  const std::string text = recorder.text();
  EXPECT_TRUE(text.starts_with("> create TestPanel tag=test\n> messenger\n> localize en\n> select first\n> offline\n| <data:dtm")) << text;
  EXPECT_NE(text.find("> mode 11\n> focus\n"), text.npos) << text;
  host->views().release(*site);
  EXPECT_NE(recorder.text().find("> release\n> terminate\n"), text.npos) << recorder.text();
  expectReplays();
}

TEST_F(TranscriptRecorderTest, AnswersOfTheHostStandBeforeTheInput) {
  components.actions["ask"] = [](TestView& view) {
    Messenger& messenger = *view.mMessenger;
    const int first = messenger.AskUser("t", "a"), second = messenger.AskUser("t", "b");
    const bool accepted = messenger.SendRequestWithStatus("<communicationRequest name=\"drive\" access=\"read\"/>", "reading", 0, 0);
    messenger.Log(67, std::to_string(first) + " " + std::to_string(second) + " " + toText(accepted) + " " + std::to_string(messenger.GetUserLevel()));
  };
  open();
  prompt.answer = 5;
  host->user().setLevel(1);
  host->setCommunicationMode(CommunicationMode::Busy);
  click("ask");
  EXPECT_NE(recorder.text().find("> answer 5 5\n> accept false\n> level 1\n> click cmdButton\nAskUser \"t\" \"a\" -> 5\n"), std::string::npos)
      << recorder.text();
  expectReplays();
}

TEST_F(TranscriptRecorderTest, WhatComesInBetweenStandsBeforeTheInput) {
  components.actions["ask"] = [](TestView& view) {
    view.mMessenger->Log(67, "before");
    for (int i = 0; i < 3; ++i) view.mMessenger->AskUser("t", std::to_string(i));
    view.mMessenger->Log(67, "after");
  };
  open();
  {
    const auto input = recorder.input("set cmdButton.Tag ask");
    button->Tag("ask");
  }
  auto* const box = dynamic_cast<CheckBox*>(findControl(site->view()->GetControls(), "chkBox"));
  prompt.meanwhile = [&] {
    // The first question is open, and the second user action meets the second question.
    prompt.meanwhile = [&] {
      const auto input = recorder.input("click chkBox");
      box->click();
    };
    const Document answer = Document::read("<comm:dtm><comm:communicationResponse name=\"x\" access=\"read\" responseStatus=\"device\"/></comm:dtm>");
    site->handIn(DataPath::Online, answer);
  };
  {
    const auto input = recorder.input("click cmdButton");
    button->click();
  }
  const std::string text = recorder.text();
  EXPECT_NE(text.find("> during AskUser online\n| <comm:dtm>"), text.npos) << text;
  EXPECT_NE(text.find("> during AskUser during AskUser click chkBox\n"), text.npos) << text;
  expectReplays();
}

TEST_F(TranscriptRecorderTest, FailuresOfTheHostAreToldByName) {
  components.actions["send"] = [](TestView& view) {
    Procedure proc(view, "send");
    for (const char* xml : {"<communicationRequest name=\"drive\" access=\"read\"/>", "no request"})
      proc.step([&] { proc.messenger().SendRequest(xml, "drive"); });
  };
  open();
  click("send");
  EXPECT_NE(recorder.text().find("> fail SendRequest 2 5 \""), std::string::npos) << recorder.text();
  expectReplays();
}

TEST_F(TranscriptRecorderTest, AnswersOfTheDeviceAndTheTimeBetweenAreInputs) {
  components.actions["send"] = [](TestView& view) {
    view.mMessenger->SendRequest("<communicationRequest name=\"drive\" access=\"read\"/>", "drive");
  };
  open();
  click("send");
  desktop.wait(0.25);
  asked.front().answer(answer("drive", "read", {{"speed", "2.5"}}));
  desktop.wait(0.5);
  click("nothing");
  const std::string text = recorder.text();
  EXPECT_NE(text.find("> advance 0.25\n> online\n| <comm:dtm"), text.npos) << text;
  EXPECT_NE(text.find("> advance 0.5\n> set cmdButton.Tag nothing\n"), text.npos) << text;
  expectReplays();
}

TEST_F(TranscriptRecorderTest, WhatComesOutOfTheClockIsAnAdvance) {
  components.actions["timer"] = [](TestView& view) {
    view.desktop().schedule(2, [&view] { view.mMessenger->Log(67, "due"); });
    view.desktop().wait(0.5);
  };
  open();
  click("timer");
  desktop.wait(5);
  click("nothing");
  const std::string text = recorder.text();
  EXPECT_NE(text.find("> click cmdButton\n> advance 1.5\nLog 67 \"due\"\n> advance 3.5\n"), text.npos) << text;
  expectReplays();
}

TEST_F(TranscriptRecorderTest, EventsAndErrorsAreRecordedOnce) {
  components.listens = true;
  open();
  site->messenger().raise({ViewEvent::Kind::ReceiveValue, 0, "a b", "1"});
  site->messenger().raise({ViewEvent::Kind::ReceiveValue, 0, "throw", "1"});
  host->user().setUnit("temperature", "degF");
  host->edits().collect(2);
  const std::string text = recorder.text();
  EXPECT_NE(text.find("> receive \"a b\" \"1\"\nLog 77 \"one hears a b 1\"\n> receive throw \"1\"\nUnhandled 13 \"one\"\n> units\n> changes 2\n"),
            text.npos)
      << text;
}

TEST_F(TranscriptRecorderTest, FileDialogsAreToldByTheNameOfTheFile) {
  components.actions["open"] = [](TestView& view) {
    for (int i = 0; i < 2; ++i) {
      const auto file = view.desktop().openDialog({"title", "filter", "par", "a.par"});
      view.mMessenger->Log(67, file ? file->filename().string() : "cancelled");
    }
  };
  open();
  desktop.nextFile = "/somewhere/x.par";
  click("open");
  EXPECT_NE(recorder.text().find("> dialog \"x.par\"\n> dialog cancel\n> click cmdButton\nOpenDialog"), std::string::npos) << recorder.text();
  expectReplays();
}

}  // namespace ostrand::test
