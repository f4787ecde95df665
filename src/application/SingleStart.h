// One diary, one window: a second start brings the first one's window to the front and ends. Programs meet in
// the user's runtime folder under a name made from their data folder, so that those with different diaries do
// not find each other.
#pragma once

#include <QLocalServer>
#include <QLockFile>
#include <QObject>

namespace sanovia {

class SingleStart : public QObject {
  Q_OBJECT

 public:
  // Where the desk's leave to come to the front is kept.
  static constexpr const char* kToken = "XDG_ACTIVATION_TOKEN";

  SingleStart();
  ~SingleStart() override;

  // Whether this program is to run. False when another one runs on the same diary and has been asked to come
  // to the front; one that does not answer within a few seconds does not hinder this one. What a program that
  // was killed has left behind does not count.
  bool isFirst();

 signals:
  // Another start has asked for the window. The token, which may be empty, is the desk's leave to come to
  // the front.
  void secondStart(const QString& token);

 private:
  void answer();
  bool callFirst() const;

  QString _name;
  QLockFile _lock;
  QLocalServer _server;
};

}  // namespace sanovia
