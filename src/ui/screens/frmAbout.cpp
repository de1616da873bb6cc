#include "ui/screens/frmAbout.h"

#include <QFontInfo>
#include <QFormLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/screens/Captions.h"

namespace rollwick {

namespace {

QLabel* TextLabel(const char* name, const QString& text) {
  auto* const label = new QLabel;
  label->setTextFormat(Qt::PlainText);
  label->setText(text);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  Name(*label, name, {});
  label->setAccessibleName(text);
  return label;
}

QLabel* PathLabel(int index, const AboutFolder& folder) {
  QLabel* const label = TextLabel("lblFolder", QString::fromStdString(folder.path.string()));
  Name(*label, "lblFolder", index, {});
  label->setWordWrap(true);
  label->setAccessibleName(folder.caption + ' ' + label->text());
  return label;
}

QLabel* Title() {
  QLabel* const title = TextLabel("lblName", "Rollwick");
  QFont large = title->font();
  large.setPointSizeF(QFontInfo(large).pointSizeF() * 2);  // desktops may give it in pixels
  large.setBold(true);
  title->setFont(large);
  return title;
}

}  // namespace

frmAbout::frmAbout(Game& game, const QString& version, const std::vector<AboutFolder>& folders,
                   QWidget* owner)
    : Screen(game, "frmAbout", {}, owner) {
  setWindowTitle("About Rollwick");
  auto* const facts = new QFormLayout;
  const auto add = [&](const QString& caption, QLabel* text) {
    auto* const label = new QLabel(caption + ':');
    Name(*label, text->objectName().replace("lbl", "lblCaption").toStdString(), caption);
    facts->addRow(label, text);
  };
  add("Version", TextLabel("lblVersion", version));
  add("Licence", TextLabel("lblLicence", "MIT, \u00a9 2026 The Rollwick developers"));
  add("Built with", TextLabel("lblBuiltWith", QString("C++20 and Qt %1 (LGPL 3); running on Qt %2")
                                                  .arg(QT_VERSION_STR, QString::fromLatin1(qVersion()))));
  int index = 0;
  for (const AboutFolder& folder : folders) add(folder.caption, PathLabel(index++, folder));

  auto* const ok = new QPushButton("OK");
  Name(*ok, "cmdOK", ok->text());
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &frmAbout::accept);

  auto* const page = new QVBoxLayout(this);
  page->setSizeConstraint(QLayout::SetFixedSize);
  page->addWidget(Title());
  page->addWidget(TextLabel("lblWhat", "A craps table to play and to study the game at."));
  page->addLayout(facts);
  page->addWidget(ok, 0, Qt::AlignHCenter);
  const int space = fontMetrics().height();
  page->setContentsMargins(space, space, space, space);
  page->setSpacing(space * 3 / 4);
  ok->setFocus();
}

void ShowAboutWindow(Game& g, const QString& version, const std::vector<AboutFolder>& folders, QWidget* owner,
                     const HelpOpener& showHelp) {
  const QPointer<frmAbout> dialog = new frmAbout(g, version, folders, owner);
  dialog->ShowHelp = showHelp;
  dialog->exec();
  delete dialog;
}

}  // namespace rollwick
