#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "host/Messages.h"
#include "platform/base/Locale.h"
#include "platform/controls/ParameterInfo.h"
#include "platform/types/IUnitConverter.h"

namespace ostrand {

// A device's data set with its file. All texts of values are in document form: a decimal point, in the data set's unit.
// A name that the data set does not have gives empty texts and is passed over when set.
class DataSet {
 public:
  // RuntimeError 53 (no such file), 70 (not readable), 5 (no document, or no data set); each names the file.
  static DataSet open(const std::filesystem::path& file);
  explicit DataSet(Document document, std::filesystem::path file = {});

  const Document& document() const { return mDocument; }
  // A document of its own for a view, which may change what it is handed.
  Document copy() const { return mDocument.copy(); }
  // The same without edits, and without values that the device has not given.
  Document deviceCopy() const;
  const std::filesystem::path& file() const { return mFile; }
  // Whole or not at all; RuntimeError 70 leaves the file as it was. `saveAs` takes on the new file when it is written.
  void save();
  void saveAs(const std::filesystem::path& file);
  // Whether anything has changed since it was opened or saved.
  bool changed() const { return mChanged; }
  // What the device has told, or was told, since then.
  const std::set<std::string>& exchanged() const { return mExchanged; }

  std::string busCategory() const;
  std::string deviceType() const;

  std::vector<std::string> parameters() const;
  bool has(std::string_view parameter) const;
  ParameterInfo info(std::string_view parameter) const;
  // What the device last said; what was edited without it; the edit if there is one, else the other.
  std::string value(std::string_view parameter) const;
  std::string offlineValue(std::string_view parameter) const;
  std::string current(std::string_view parameter) const;
  bool synchronised(std::string_view parameter) const;
  // Whether an edit was accepted and the device has not been told.
  bool accepted(std::string_view parameter) const { return !offlineValue(parameter).empty(); }
  // How the value leaves, in the data set's own word (ActingValues); empty for one that does nothing.
  std::string acts(std::string_view parameter) const { return attribute(parameter, "acts"); }

  // An edit that the device has not been told: one equal to the value is none.
  void edit(std::string_view parameter, std::string_view text);
  void discardEdit(std::string_view parameter);
  std::vector<std::string> edited() const;

  std::vector<std::string> groups() const;
  // All parameters of a group, clones included.
  std::vector<std::string> parametersOf(std::string_view group) const;
  std::string homeGroup(std::string_view parameter) const;
  std::string lastUpdate(std::string_view group) const;

  // What a request carries of this parameter; with or without its current value.
  MessageItem item(std::string_view parameter, bool withValue) const;
  // What is asked for when the group is read: its parameters that the data set has and that can be read.
  std::vector<MessageItem> readItems(std::string_view group) const;

  // Takes over the values of an answer of the device, and the stamp of its group when it is the last answer to a read.
  // What was written is no edit any more. Gives the names of items whose values could not be used: text where a number
  // belongs, or a unit that cannot be converted. "NaN" is a value, and so is an empty text: the device has none yet.
  std::vector<std::string> takeAnswer(const Document& answer, LocalTime now, IUnitConverter* units);
  // A sample that begins anew ("sample1") has no values yet.
  void forgetSample(std::string_view sample);

 private:
  Node node(std::string_view parameter) const;
  std::string attribute(std::string_view parameter, const char* name) const;
  void set(const Node& parameter, const char* attribute, std::string_view text);

  Document mDocument;
  std::filesystem::path mFile;
  bool mChanged = false;
  std::set<std::string> mExchanged;
};

// The value of an answer's item in the unit of the parameter; nothing if it cannot be used there.
std::optional<std::string> usableValue(const Node& item, const ParameterInfo& info, IUnitConverter* units);

// "31/12/2025 23:59:59", the form of a group's stamp.
std::string groupStamp(LocalTime time);

}  // namespace ostrand
