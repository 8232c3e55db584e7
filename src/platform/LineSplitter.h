// Cuts a stream of bytes into lines, each ended by a line feed.
#pragma once

#include <QByteArray>

#include <optional>

namespace zv {

class LineSplitter {
  public:
    // Longest line, in bytes, with its line feed.
    static constexpr qsizetype kMaxLinea = 1048576;

    void Anadir(const QByteArray& bytes);
    // The next whole line without its line feed; nothing when none is complete.
    std::optional<QByteArray> Siguiente();
    // A line is longer than allowed: nothing more can be read of this stream.
    bool Desbordado() const { return desbordado_; }
    void Vaciar();

  private:
    QByteArray buffer_;
    qsizetype inicio_ = 0; // first byte not handed out
    qsizetype mirado_ = 0; // no line feed stands before this one
    bool desbordado_ = false;
};

} // namespace zv
