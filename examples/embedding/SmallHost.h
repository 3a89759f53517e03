#pragma once

#include <algorithm>
#include <iostream>
#include <string>
#include <vector>

#include "platform/types/IHostContainer.h"
#include "platform/types/Messenger.h"
#include "platform/types/Query.h"

using namespace ostrand;
using Text = const std::string&;

template <class... Parts>
void say(const Parts&... parts) {
  (std::cout << ... << parts) << "\n";
}

// All that a view asks of its host, in one counted object: the Messenger, the place of the view, the texts of a language.
class SmallHost final : public Messenger, public IHostContainer, public ITextTable {
 public:
  Result queryInterface(const Guid& id, void** out) noexcept override {
    *out = nullptr;
    const bool has = offer<Messenger>(id, this, out) || offer<IHostContainer>(id, this, out) || offer<ITextTable>(id, this, out);
    return has || offer<IObject>(id, this, out) ? Result::Ok : Result::NoInterface;
  }
  std::uint32_t addRef() noexcept override { return ++mCount; }
  std::uint32_t release() noexcept override {
    const std::uint32_t left = --mCount;
    if (left == 0) delete this;
    return left;
  }

  // What goes to the device. A host queues it and returns at once; the answer comes later.
  void DTMGUIDownload(Text xml, Text name, int) override { say("DTMGUIDownload ", name, "\n  ", xml); }
  void SendRequest(Text xml, Text name) override { say("SendRequest ", name, "\n  ", xml); }
  void ReadRequest(Text xml, int) override { say("ReadRequest\n  ", xml); }
  bool SendRequestWithStatus(Text xml, Text key, int, int) override { return say("SendRequestWithStatus ", key, "\n  ", xml), true; }

  // What goes to the user, to the host's lists and to its log. The answer 4 goes on, 5 stops.
  int AskUser(Text title, Text message) override { return say("AskUser ", title, ": ", message), 4; }
  void ShowMessage(Text title, Text message) override { say("ShowMessage ", title, ": ", message); }
  void SetStatusLine(Text text, Text) override { say("SetStatusLine ", text); }
  void SetProgress(Text text, int first, int second) override { say("SetProgress ", text, " ", first, " ", second); }
  void SetParameterStatus(Text name, Text word) override { say("SetParameterStatus ", name, " ", word); }
  int AddChange(Text name, Text, Text, Text value, Text, Text, Text) override { return say("AddChange ", name, " ", value), 1; }
  void ReportError(Text prefix, int number, Text why) override { say("ReportError ", prefix, number, " ", why); }
  void Log(int category, Text text) override { say("Log ", static_cast<char>(category), " ", text); }
  void ForwardValue(Text, Text) override {}  // to the other views: there is none
  void FocusOut() override {}

  // What a view wants to know. A language in which every key is its own text will do here.
  int GetCommunicationMode() override { return 11; }
  int GetUserLevel() override { return 3; }
  bool GetMaximizeAllowed() override { return true; }
  Ref<IAddressService> GetAddressService() override { return nullptr; }
  Ref<IUnitConverter> GetUnitConverter() override { return nullptr; }
  Document GetTreeDocument() override { return {}; }
  std::string DTMGUIGetXmlPath() override { return "./"; }
  Ref<ITextTable> GetTextTable() override { return this; }
  std::string GetText(Text key) override { return key; }
  std::string GetLabel(Text key) override { return key; }
  std::string GetSectionText(Text key, Text) override { return key; }

  // The events: in the order of subscription, over a snapshot, passing over who has left meanwhile.
  void Subscribe(MessengerEvents& listener) override { mListeners.push_back(&listener); }
  void Unsubscribe(MessengerEvents& listener) override { std::erase(mListeners, &listener); }
  void raiseCommunicationMode(int mode) {
    for (MessengerEvents* listener : std::vector(mListeners))
      if (std::find(mListeners.begin(), mListeners.end(), listener) != mListeners.end()) listener->ViewSetCommunicationMode(mode);
  }

 private:
  ~SmallHost() = default;
  std::uint32_t mCount = 0;
  std::vector<MessengerEvents*> mListeners;
};
