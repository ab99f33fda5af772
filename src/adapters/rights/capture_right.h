#pragma once

namespace adapters {

// The right to open a raw socket (CAP_NET_RAW on Linux). The program holds it in reserve, where
// neither its own code nor a child has the use of it, and raises it for the moment in which an
// interface is opened, or in which it asks whether one could be. Reading, filters and counters take
// no right.

/// The right is at hand, raised or in reserve. Systems without such a right have it always.
bool HasCaptureRight();

/// To be called before anything else happens: puts the right in reserve and gives up every other
/// one, also what a child would inherit. Root keeps its other rights, since all of its work rests
/// on them, and its children have what root has.
void ReserveCaptureRight();

/// Nothing that this process starts gets a right by the file it is started from. Only for a program
/// that starts nobody else's programs, since the user's own may need theirs.
void GainNoMoreRights();

/// Raises the right as long as it lives, also where a routine is left by an exception. A right that
/// was raised before stays, and one that is not in reserve is not had.
class RaisedRight {
 public:
  RaisedRight();
  RaisedRight(const RaisedRight&) = delete;
  RaisedRight& operator=(const RaisedRight&) = delete;
  ~RaisedRight();

 private:
  bool raised_;
};

/// Asks for a raw socket, which hears nothing, and gives it back: 0, or the system's error number.
/// Systems without such sockets have nothing against it.
int TryRawSocket();

/// No child gets this descriptor.
void KeepFromChildren(int descriptor);

}  // namespace adapters
