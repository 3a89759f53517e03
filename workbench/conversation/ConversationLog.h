#pragma once

#include <QAbstractItemModel>
#include <QStringList>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>

#include "platform/base/Locale.h"
#include "workbench/words/Texts.h"

namespace ostrand {

// What has been said between the views, the host and the user: a line each, with the document that belongs to it. As a model
// for a tree view: below a line with a document stand the lines of the document, laid out for reading.
class ConversationLog : public QAbstractItemModel {
 public:
  enum class Kind { User, Host, Data, Request, Message, Status, Change, Log, Error, Bus };
  static constexpr int kKinds = 10;
  static const char* word(Kind kind);
  void setTexts(const Texts& texts);
  QString shownWord(Kind kind) const { return mTexts.say(word(kind)); }

  struct Line {
    LocalTime time{};
    Kind kind = Kind::Host;
    std::string view;
    std::string text;
    std::string xml;
    std::optional<QStringList> xmlLines;  // made when somebody looks
  };
  using Number = std::uint64_t;
  enum Column { Time, What, Text, kColumns };
  enum Role { KindRole = Qt::UserRole, PlainRole, XmlRole };

  explicit ConversationLog(QObject* parent = nullptr) : QAbstractItemModel(parent) {}

  // Gives the line's number, for what is still to come. The oldest lines go when there are too many.
  Number add(Line line);
  // Adds to the text of a line that is still there.
  void append(Number number, const std::string& text);
  // Turns a line into one of an error.
  void markFailed(Number number, const std::string& text);
  void clear();
  std::size_t size() const { return mLines.size(); }
  const Line& line(std::size_t row) const { return mLines[row]; }
  // A line with time and document, as it is copied.
  static QString plain(const Line& line);

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex& child) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  bool hasChildren(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& = {}) const override { return kColumns; }
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  const QStringList& xmlLines(std::size_t row) const;
  // Lines are named by numbers that never change, since rows move up when old lines go.
  std::optional<std::size_t> rowOf(Number number) const;

  Texts mTexts;
  mutable std::deque<Line> mLines;
  Number mFirst = 1;
};

// A document laid out with a line for each element; a text that is no document as it stands.
QStringList laidOut(const std::string& xml);

}  // namespace ostrand
