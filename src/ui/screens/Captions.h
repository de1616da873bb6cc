// Captions of the screens' controls as the table has them, leading and trailing blanks included.
#pragma once

#include <QAbstractButton>
#include <QLabel>
#include <QString>
#include <QWidget>
#include <string_view>

namespace rollwick {

// Text of the game for a widget: code page 1252, carriage returns become line breaks.
QString ToQt(std::string_view text);
std::string FromQt(const QString& text);

// Gives the control its objectName (with "_index" for a member of a control array) and its accessibleName,
// which is the trimmed text without accelerator marks.
void Name(QWidget& control, std::string_view name, const QString& accessible);
void Name(QWidget& control, std::string_view name, int index, const QString& accessible);

}  // namespace rollwick
