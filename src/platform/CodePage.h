// The machine's single-byte code page, Windows-1252, in which logs, CSV files and the fast link
// are written. The five bytes without a character stand for the control characters of their code.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>

namespace zv {

// What the page cannot write becomes "?", one for each character.
QByteArray ACodePage(QStringView texto);
QString DeCodePage(QByteArrayView bytes);

} // namespace zv
