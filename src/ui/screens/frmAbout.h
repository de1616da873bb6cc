// What this program is, which version, under which licences, and where it keeps things.
#pragma once

#include <filesystem>
#include <vector>

#include "ui/screens/Screen.h"

namespace rollwick {

struct AboutFolder {
  QString caption;  // "Data"
  std::filesystem::path path;
};

class frmAbout : public Screen {
  Q_OBJECT

 public:
  frmAbout(Game& g, const QString& version, const std::vector<AboutFolder>& folders, QWidget* owner);
};

// Shows it, modal to `owner`, until it is closed.
void ShowAboutWindow(Game& g, const QString& version, const std::vector<AboutFolder>& folders, QWidget* owner,
                     const HelpOpener& showHelp = {});

}  // namespace rollwick
