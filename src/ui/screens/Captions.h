// Texts of the game on widgets, and the names controls are found and read out by.
#pragma once

#include <QString>
#include <QWidget>
#include <string>
#include <string_view>

namespace rollwick {

// Text of the game (UTF-8, lines parted by carriage returns) for a widget, and back.
QString ToQt(std::string_view text);
std::string FromQt(const QString& text);

// A caption as it is read out: trimmed, without accelerator marks.
QString Spoken(const QString& caption);

// The caption with its first accelerator alone: a second one could not be typed.
QString OneAccelerator(const QString& caption);

// A user's text on a button, a tab or a menu entry, where "&" would vanish and take a key.
QString WithoutAccelerator(QString text);

// Gives the control its objectName (with "_index" for a member of a control array) and its accessibleName,
// which is the caption as it is read out.
void Name(QWidget& control, std::string_view name, const QString& accessible);
void Name(QWidget& control, std::string_view name, int index, const QString& accessible);

}  // namespace rollwick
