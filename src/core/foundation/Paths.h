// Where things are kept. The folders follow XDG_DATA_HOME and XDG_CONFIG_HOME on Linux and the user's library
// on macOS; they are asked for anew at each call, so that a test that moves them is believed at once.
#pragma once

#include <QString>

namespace sanovia {

class Paths {
 public:
  // The folder "Quillmere/Sanovia" of the user's application data; it need not exist.
  static QString dataFolder();

  // The diary itself, "Sanovia.db" in dataFolder().
  static QString databaseFile();

  // The folder "Backups" beside the diary, which holds its copies; it need not exist.
  static QString backupFolder();

  // The settings, "Quillmere/Sanovia.conf" in the user's configuration folder.
  static QString settingsFile();

  // The folder that holds the language folders ("en.lproj" and its like). It lies inside the program.
  static QString resourceFolder();

  // Lets another folder stand in for the program's own resources; an empty path brings them back.
  static void setResourceFolder(const QString& folder);

  // Takes the XDG variables that are no absolute paths out of the environment: they count as not set. To be
  // called before anything else asks for a folder.
  static void ignoreRelativeVariables();
};

}  // namespace sanovia
