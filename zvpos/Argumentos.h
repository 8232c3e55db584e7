// Splits a command line into options with their values and the rest. Made by hand because a refund
// ("-450") is a value here and no option.
#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

namespace zv::zvpos {

struct Argumentos {
    QMap<QString, QString> opciones; // by name without "--"; flags have an empty value
    QStringList sueltos;             // the others, in order
};

// banderas take no value, conValor take one: "--x V" or "--x=V". After "--" nothing is an option.
// False with a text for people for an unknown, repeated or incomplete option.
bool Separar(const QStringList& crudos, const QStringList& banderas, const QStringList& conValor,
             Argumentos& argumentos, QString& error);

// Digits with one sign or none before them.
bool EsEntero(const QString& texto);

} // namespace zv::zvpos
