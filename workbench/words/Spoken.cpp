#include "workbench/words/Spoken.h"

#include <QVariant>

namespace ostrand {

namespace {

constexpr const char* kPrefix = "say:";

}  // namespace

void speak(QObject& part, const char* property, const char* english) {
  const QString text = QString::fromUtf8(english);
  part.setProperty(QByteArray(kPrefix) + property, text);
  part.setProperty(property, text);
}

void speakAnew(QObject& window, const Texts& texts) {
  for (QObject* const each : window.findChildren<QObject*>()) {
    for (const QByteArray& name : each->dynamicPropertyNames()) {
      if (!name.startsWith(kPrefix)) continue;
      const QByteArray property = name.mid(static_cast<qsizetype>(qstrlen(kPrefix)));
      const QString text = texts.say(each->property(name).toString().toUtf8());
      if (each->property(property).toString() != text) each->setProperty(property, text);
    }
  }
}

}  // namespace ostrand
