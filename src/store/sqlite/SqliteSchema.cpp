// Data definition. The declared types are those that the ODBC driver maps to numbers, times and
// texts; SQLite itself keeps to them only where a CHECK says so.
#include "store/sqlite/SqliteSchema.h"

#include "platform/StringLiterals.h"

namespace zv::sqliteschema {

namespace {

// A text without NUL: length(), substr() and NOCASE stop there, so that anything could hide behind.
QString SinNul(const QString& c) {
    return u"instr(%1,char(0))=0"_s.arg(c);
}

// "YYYY-MM-DD", with " HH:MM" or " HH:MM:SS" or a fraction behind it if there is a time, a real day
// (the modifier makes SQLite look at the calendar) at a real hour; or the number of days that older
// writers use.
QString ComprobacionFecha(const QString& c) {
    return u"CHECK(%1 IS NULL OR (typeof(%1)='text' AND %2 AND "
           "date(substr(%1,1,10),'+0 days') IS substr(%1,1,10) AND time(%1) IS NOT NULL AND "
           "substr(%1,11,1) IN ('',' ','T') AND substr(%1,17,1) IN ('',':') AND "
           "(length(%1) IN (10,16,19) OR (length(%1) BETWEEN 21 AND 29 AND substr(%1,20,1)='.' AND "
           "substr(%1,21) NOT GLOB '*[^0-9]*'))) OR "
           "(typeof(%1) IN ('integer','real') AND %1>=-657434 AND %1<2958466))"_s.arg(c, SinNul(c));
}

QString Tipo(const ColumnDef& columna) {
    const QString c = Citar(columna.nombre);
    switch (columna.tipo) {
    case ColumnType::AutoLong:
    case ColumnType::Long:
        return u"INTEGER CHECK(%1 IS NULL OR (typeof(%1)='integer' AND "
               "%1 BETWEEN -2147483648 AND 2147483647))"_s.arg(c);
    case ColumnType::Date:
        return u"DATETIME "_s + ComprobacionFecha(c);
    case ColumnType::Currency:
        // The ends of the type lie between two doubles: the outer one could not be read back.
        return u"NUMERIC(19,4) CHECK(%1 IS NULL OR (typeof(%1) IN "
               "('integer','real') AND %1 BETWEEN -922337203685477.5 AND "
               "922337203685477.5))"_s.arg(c);
    case ColumnType::Text:
        return u"VARCHAR(%2) COLLATE NOCASE CHECK(typeof(%1)<>'blob' AND "
               "length(%1)<=%2 AND %3)"_s.arg(c)
                   .arg(columna.caracteres)
                   .arg(SinNul(c));
    case ColumnType::Boolean:
        // A yes/no is never Null, whoever writes it.
        return u"BOOLEAN NOT NULL ON CONFLICT REPLACE DEFAULT 0 "
               "CHECK(typeof(%1)='integer')"_s.arg(c);
    }
    return {};
}

QString Prefijo(const QString& tabla) {
    return tabla.toLower() + u"__"_s;
}

} // namespace

QString Citar(const QString& nombre) {
    QString doblado = nombre;
    doblado.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return QLatin1Char('"') + doblado + QLatin1Char('"');
}

QString SqlCrearTabla(const TableDef& tabla) {
    QStringList columnas;
    for (const ColumnDef& columna : tabla.columnas) {
        QString texto = Citar(columna.nombre) + QLatin1Char(' ');
        if (columnas.isEmpty()) {
            QString tipo = Tipo(columna);
            // The key's clause stands right behind the bare type.
            const QString clave = columna.tipo == ColumnType::AutoLong
                                      ? u" CONSTRAINT PrimaryKey PRIMARY KEY "
                                        "AUTOINCREMENT"_s
                                      : u" CONSTRAINT PrimaryKey PRIMARY KEY"_s;
            tipo.insert(tipo.indexOf(QLatin1Char(' ')), clave);
            texto += tipo;
        } else {
            texto += Tipo(columna);
        }
        columnas.append(texto);
    }
    return u"CREATE TABLE "_s + Citar(tabla.nombre) + u" (\n  "_s + columnas.join(u",\n  "_s) +
           u"\n)"_s;
}

QString SqlCrearIndice(const IndexDef& indice) {
    QStringList columnas;
    for (const QString& columna : indice.columnas) {
        columnas.append(Citar(columna));
    }
    return (indice.unico ? u"CREATE UNIQUE INDEX "_s : u"CREATE INDEX "_s) +
           Citar(IndiceFisico(indice.tabla, indice.nombre)) + u" ON "_s + Citar(indice.tabla) +
           u" ("_s + columnas.join(u", "_s) + QLatin1Char(')');
}

QString SqlAñadirColumna(const QString& tabla, const ColumnDef& columna) {
    return u"ALTER TABLE "_s + Citar(tabla) + u" ADD COLUMN "_s + Citar(columna.nombre) +
           QLatin1Char(' ') + Tipo(columna);
}

QString IndiceFisico(const QString& tabla, const QString& indice) {
    return Prefijo(tabla) + indice;
}

QString IndiceLogico(const QString& tabla, const QString& fisico) {
    const QString prefijo = Prefijo(tabla);
    return fisico.startsWith(prefijo, Qt::CaseInsensitive) ? fisico.mid(prefijo.size()) : fisico;
}

} // namespace zv::sqliteschema
