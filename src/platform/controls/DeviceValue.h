#pragma once

#include <optional>
#include <string>

#include "platform/base/Locale.h"
#include "platform/base/Ref.h"
#include "platform/controls/ParameterInfo.h"
#include "platform/types/IUnitConverter.h"

namespace ostrand {

// Where a value finds the host's unit service. It is asked only when something must be converted.
class UnitSource {
 public:
  // Nothing if the host has none, or if there is no host.
  virtual Ref<IUnitConverter> converter() const = 0;

 protected:
  ~UnitSource() = default;
};

// A number in another unit; nothing if the service cannot convert. The service gets copies of the units: it may be the host's, who
// may change what they were taken from.
std::optional<double> converted(double value, const std::string& from, const std::string& to, const UnitSource& units);

// One value of the device between its documents and a screen; it knows no control and no host. Two texts tell it: the stored one
// as the documents have it (a point, the data set's unit), and what the screen shows (the user's separator, unit and decimals).
// Between them may stand an edit, what a user typed or code set, in the unit in which it was meant: it is kept as it is, so that
// another unit on the screen, or another locale, and back changes nothing.
//
// What is asked of the unit service may bring another value: nothing of this one is borrowed across it.
class DeviceValue {
 public:
  struct Edit {
    std::string text;  // a number with a point or a comma, or any text
    std::string unit;
    bool byUser;
  };
  // Of an item: its value in the data set's unit, and whether it can stand there. A text where a number belongs is taken as it
  // is, and a number in a unit that cannot be converted together with that unit.
  struct Received {
    std::string text;
    bool usable;
  };

  // The description of a data:parameter; what is stored stays. Where its unit is another one, that is the unit on the screen
  // until `chooseUnit`.
  ParameterValues describe(const Node& parameter);
  const ParameterInfo& info() const { return mInfo; }
  // The unit on the screen of a parameter of this name: the user's if the host knows one and can convert to it, else the data
  // set's. A service that fails leaves it as it was.
  void chooseUnit(std::string_view name, const UnitSource& units);
  const std::string& displayUnit() const { return mDisplayUnit; }

  const std::string& stored() const { return mStored; }
  // Another stored value; an edit stays.
  void store(std::string documentText) { mStored = std::move(documentText); }
  // The text of a document as it is stored: numbers without the blanks around them.
  std::string documentText(std::string_view text) const;
  // The value element of an item, if it has one.
  std::optional<Received> received(const Node& item, const UnitSource& units) const { return received(item, mInfo, units); }
  static std::optional<Received> received(const Node& item, const ParameterInfo& info, const UnitSource& units);

  const std::optional<Edit>& edit() const { return mEdit; }
  void edit(Edit edit) { mEdit = std::move(edit); }
  void dropEdit() { mEdit.reset(); }
  // Whether this would be the stored value: as a number in the data unit, or as a text.
  bool isStored(const Edit& edit, const UnitSource& units) const;
  // The same with as many decimals as the screen shows; what was meant in another unit keeps its own.
  Edit rounded(Edit edit) const;

  // A text of a document as the screen shows it. What is no number ("NaN", any text) stays as it is.
  std::string shown(const std::string& documentText, const Locale& locale, const UnitSource& units) const;
  // What stands on the screen: the edit, or else the stored value.
  std::string onScreen(const Locale& locale, const UnitSource& units) const;
  // The same as a document has it; nothing if it cannot be told in the data set's unit.
  std::optional<std::string> told(const UnitSource& units) const { return mEdit ? told(Edit(*mEdit), units) : mStored; }
  std::optional<double> number(const UnitSource& units) const;

  // How what stands on the screen does against type and limits. What is shown rounded passes, within `tolerance`.
  struct Check {
    bool passes;
    std::optional<double> number;
    double tolerance = 0;
  };
  Check check(const UnitSource& units) const;

 private:
  std::optional<std::string> told(const Edit& edit, const UnitSource& units) const;
  bool isWrongFraction(double value) const;

  ParameterInfo mInfo;
  std::string mDisplayUnit = "noUnit";
  std::string mStored;
  std::optional<Edit> mEdit;
};

// A number that a user typed: point and comma both work.
std::optional<double> typedNumber(const std::string& text);

}  // namespace ostrand
