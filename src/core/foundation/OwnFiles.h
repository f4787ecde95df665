// The files that the diary lives by, and what keeps them from others: nothing is written over them that was
// meant for another file, and nobody but their owner reads them.
#pragma once

#include <QString>

#include <optional>

namespace sanovia {

class OwnFiles {
 public:
  // Why nothing may be exported, saved or printed to that file: because it is the diary, one of its journals
  // or copies, or the settings, under whatever name or link. Nothing for any other file.
  static std::optional<QString> refusal(const QString& file);
  // The same of a file that is open already.
  static std::optional<QString> refusalOfOpen(int descriptor);

  // Makes the folder and those above it that are missing, each open to its owner alone, whatever the umask.
  static void makePrivateFolder(const QString& path);

  // Takes from everybody else the leave to read and write the folders of diary and settings and the files in
  // them, where they are this user's. Nothing is given.
  static void keepPrivate();
  // The same of one file.
  static void keepPrivate(const QString& file);
};

}  // namespace sanovia
