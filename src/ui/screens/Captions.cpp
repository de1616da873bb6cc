#include "ui/screens/Captions.h"

#include <utility>

namespace rollwick {

QString ToQt(std::string_view text) {
  QString shown = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  shown.replace("\r\n", "\n").replace('\r', '\n');
  return shown;
}

std::string FromQt(const QString& text) {
  QString lines = text;
  return lines.replace('\n', '\r').toStdString();
}

QString Spoken(const QString& caption) {
  QString spoken;
  for (qsizetype i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && i + 1 < caption.size()) ++i;  // "&&" is one that is shown
    spoken += caption[i];
  }
  return spoken.trimmed();
}

QString OneAccelerator(const QString& caption) {
  QString typed;
  bool hasOne = false;
  for (qsizetype i = 0; i < caption.size(); ++i) {
    const bool isMark = caption[i] == '&' && i + 1 < caption.size();
    if (isMark && caption[i + 1] == '&') {
      typed += caption[i++];  // "&&" is one that is shown
    } else if (isMark && std::exchange(hasOne, true)) {
      continue;
    }
    typed += caption[i];
  }
  return typed;
}

QString WithoutAccelerator(QString text) {
  return text.replace('&', "&&");
}

void Name(QWidget& control, std::string_view name, const QString& accessible) {
  control.setObjectName(ToQt(name));
  control.setAccessibleName(Spoken(accessible));
}

void Name(QWidget& control, std::string_view name, int index, const QString& accessible) {
  Name(control, std::string(name) + '_' + std::to_string(index), accessible);
}

}  // namespace rollwick
