// Decides whether the user or the program changed a window's position or size.
#pragma once

// The window system reports each change of a position or size. Its first report after a request of
// the program is the answer, with the requested value or with one that the window manager chose.
// Any later report of another value is a change by the user.
template <class Value>
class ChangeOrigin {
 public:
  // The program asked for a value, or the window manager is about to choose one.
  void Request(const Value& value) {
    requested_ = value;
    answerIsDue_ = true;
  }
  // No answer is due any more.
  void EndRequest() { answerIsDue_ = false; }
  // Records a reported value and returns whether the user chose it.
  bool IsUsers(const Value& value) {
    const bool isUsers = !answerIsDue_ && value != requested_ && value != answered_;
    answerIsDue_ = false;
    answered_ = value;
    if (isUsers) requested_ = value;
    return isUsers;
  }

 private:
  Value requested_{};
  Value answered_{};
  bool answerIsDue_ = false;
};
