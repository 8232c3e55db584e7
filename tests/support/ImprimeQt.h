// Lets GoogleTest print Qt texts as text when an assertion fails.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <ostream>

// GoogleTest finds PrintTo by argument-dependent look-up, in the namespace of the types.
QT_BEGIN_NAMESPACE
inline void PrintTo(const QString& texto, std::ostream* salida) {
    *salida << '"' << texto.toStdString() << '"';
}
inline void PrintTo(const QByteArray& bytes, std::ostream* salida) {
    *salida << '"' << bytes.toPercentEncoding(" |:;,./\\()[]=+áéíóúñ").toStdString() << '"';
}
inline void PrintTo(const QStringList& lista, std::ostream* salida) {
    *salida << "[\n  " << lista.join(QLatin1String("\n  ")).toStdString() << "\n]";
}
QT_END_NAMESPACE
