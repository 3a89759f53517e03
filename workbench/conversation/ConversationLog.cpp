#include "workbench/conversation/ConversationLog.h"

#include <QBrush>
#include <QFontDatabase>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include "workbench/words/Texts.h"

namespace ostrand {

namespace {

constexpr std::size_t kMost = 20000;
constexpr std::size_t kDroppedAtOnce = 2000;
// A longer document is cut for reading; it is copied and saved whole.
constexpr qsizetype kMostXmlLines = 2000;

}  // namespace

const char* ConversationLog::word(Kind kind) {
  static constexpr const char* kWords[kKinds] = {"User", "Host", "Data", "Request", "Message", "State", "Change", "Log", "Error", "Bus"};
  return kWords[static_cast<int>(kind)];
}

QStringList laidOut(const std::string& xml) {
  QXmlStreamReader reader(qt(xml));
  reader.setNamespaceProcessing(false);
  QString text;
  QXmlStreamWriter writer(&text);
  writer.setAutoFormatting(true);
  writer.setAutoFormattingIndent(2);
  while (!reader.atEnd()) {
    reader.readNext();
    if (reader.isStartDocument() || reader.isEndDocument() || reader.hasError() || (reader.isCharacters() && reader.isWhitespace())) continue;
    if (reader.isStartElement()) {
      writer.writeStartElement(reader.qualifiedName().toString());
      writer.writeAttributes(reader.attributes());
    } else {
      writer.writeCurrentToken(reader);
    }
  }
  if (reader.hasError()) text = qt(xml);
  QStringList lines = text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
  if (lines.size() > kMostXmlLines) {
    const qsizetype more = lines.size() - kMostXmlLines;
    lines.resize(kMostXmlLines);
    lines << QStringLiteral("… and %1 more lines").arg(more);
  }
  return lines;
}

ConversationLog::Number ConversationLog::add(Line line) {
  if (mLines.size() >= kMost) {
    beginRemoveRows({}, 0, static_cast<int>(kDroppedAtOnce) - 1);
    mLines.erase(mLines.begin(), mLines.begin() + kDroppedAtOnce);
    mFirst += kDroppedAtOnce;
    endRemoveRows();
  }
  const int row = static_cast<int>(mLines.size());
  beginInsertRows({}, row, row);
  mLines.push_back(std::move(line));
  endInsertRows();
  return mFirst + static_cast<Number>(row);
}

void ConversationLog::append(Number number, const std::string& text) {
  const std::optional<std::size_t> row = rowOf(number);
  if (!row || text.empty()) return;
  mLines[*row].text += text;
  const QModelIndex at = index(static_cast<int>(*row), Text);
  dataChanged(at, at);
}

void ConversationLog::markFailed(Number number, const std::string& text) {
  if (const std::optional<std::size_t> row = rowOf(number)) mLines[*row].kind = Kind::Error;
  append(number, text);
}

void ConversationLog::clear() {
  beginResetModel();
  mFirst += mLines.size();
  mLines.clear();
  endResetModel();
}

std::optional<std::size_t> ConversationLog::rowOf(Number number) const {
  if (number < mFirst || number - mFirst >= mLines.size()) return std::nullopt;
  return number - mFirst;
}

QString ConversationLog::plain(const Line& line) {
  QString text = qt(standardTime(line.time)) + QLatin1Char(' ') + QLatin1String(word(line.kind)) + QLatin1Char(' ') + qt(line.text);
  if (!line.xml.empty()) text += QLatin1Char('\n') + qt(line.xml);
  return text;
}

const QStringList& ConversationLog::xmlLines(std::size_t row) const {
  Line& line = mLines[row];
  if (!line.xmlLines) line.xmlLines = laidOut(line.xml);
  return *line.xmlLines;
}

// A line of the conversation has the internal id 0, a line of a document the number of the line that it belongs to.

QModelIndex ConversationLog::index(int row, int column, const QModelIndex& parent) const {
  if (row < 0 || column < 0 || column >= kColumns) return {};
  if (!parent.isValid()) return row < static_cast<int>(mLines.size()) ? createIndex(row, column, quintptr{0}) : QModelIndex();
  return createIndex(row, column, static_cast<quintptr>(mFirst + static_cast<Number>(parent.row())));
}

QModelIndex ConversationLog::parent(const QModelIndex& child) const {
  if (!child.isValid() || child.internalId() == 0) return {};
  const std::optional<std::size_t> row = rowOf(child.internalId());
  return row ? createIndex(static_cast<int>(*row), 0, quintptr{0}) : QModelIndex();
}

int ConversationLog::rowCount(const QModelIndex& parent) const {
  if (!parent.isValid()) return static_cast<int>(mLines.size());
  if (parent.internalId() != 0 || parent.column() != 0) return 0;
  return mLines[static_cast<std::size_t>(parent.row())].xml.empty() ? 0 : static_cast<int>(xmlLines(static_cast<std::size_t>(parent.row())).size());
}

bool ConversationLog::hasChildren(const QModelIndex& parent) const {
  if (!parent.isValid()) return !mLines.empty();
  return parent.internalId() == 0 && parent.column() == 0 && !mLines[static_cast<std::size_t>(parent.row())].xml.empty();
}

QVariant ConversationLog::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  if (index.internalId() != 0) {
    const std::optional<std::size_t> row = rowOf(index.internalId());
    if (!row || index.column() != Text) return {};
    if (role == Qt::DisplayRole || role == PlainRole) return xmlLines(*row).value(index.row());
    if (role == Qt::FontRole) return QFontDatabase::systemFont(QFontDatabase::FixedFont);
    return {};
  }
  const Line& line = mLines[static_cast<std::size_t>(index.row())];
  switch (role) {
    case Qt::DisplayRole:
      if (index.column() == Time) {
        const std::string time = standardDateAndTime(line.time);
        return qt(time.substr(time.find(' ') + 1));
      }
      return index.column() == What ? shownWord(line.kind) : qt(line.text);
    case Qt::ToolTipRole: return line.view.empty() ? QString() : qt(line.view);
    case KindRole: return static_cast<int>(line.kind);
    case PlainRole: return plain(line);
    case XmlRole: return qt(line.xml);
    default: return {};
  }
}

QVariant ConversationLog::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  static constexpr const char* kHeads[kColumns] = {"Time", "Kind", "Conversation"};
  return mTexts.say(kHeads[section]);
}

void ConversationLog::setTexts(const Texts& texts) {
  mTexts = texts;
  headerDataChanged(Qt::Horizontal, 0, kColumns - 1);
  if (!mLines.empty()) dataChanged(index(0, What), index(static_cast<int>(mLines.size()) - 1, What));
}

}  // namespace ostrand
