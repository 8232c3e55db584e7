// Data definition. The declared types are those that the ODBC driver maps to numbers, times and
// texts; SQLite itself keeps to them only where a CHECK says so.
#include "store/EsquemaSQLite.h"

namespace zv::esquemasqlite {

namespace {

// "YYYY-MM-DD", with " HH:MM" or " HH:MM:SS" or a fraction behind it if there is a time, a real day
// (the modifier makes SQLite look at the calendar) at a real hour; or the number of days that older
// writers use.
QString ComprobacionFecha(const QString& c) {
    return QStringLiteral(
               "CHECK(%1 IS NULL OR (typeof(%1)='text' AND "
               "date(substr(%1,1,10),'+0 days') IS substr(%1,1,10) AND time(%1) IS NOT NULL AND "
               "substr(%1,11,1) IN ('',' ','T') AND substr(%1,17,1) IN ('',':') AND "
               "(length(%1) IN (10,16,19) OR (length(%1)>20 AND substr(%1,20,1)='.' AND "
               "substr(%1,21) NOT GLOB '*[^0-9]*'))) OR "
               "(typeof(%1) IN ('integer','real') AND %1>=-657434 AND %1<2958466))")
        .arg(c);
}

QString Tipo(const DefColumna& columna) {
    const QString c = Citar(columna.nombre);
    switch (columna.tipo) {
    case TipoColumna::AutoLong:
    case TipoColumna::Long:
        return QStringLiteral("INTEGER CHECK(%1 IS NULL OR (typeof(%1)='integer' AND "
                              "%1 BETWEEN -2147483648 AND 2147483647))")
            .arg(c);
    case TipoColumna::Date:
        return QStringLiteral("DATETIME ") + ComprobacionFecha(c);
    case TipoColumna::Currency:
        return QStringLiteral("NUMERIC(19,4) CHECK(%1 IS NULL OR (typeof(%1) IN "
                              "('integer','real') AND %1 BETWEEN -922337203685477.5808 AND "
                              "922337203685477.5807))")
            .arg(c);
    case TipoColumna::Text:
        return QStringLiteral("VARCHAR(%2) COLLATE NOCASE CHECK(typeof(%1)<>'blob' AND "
                              "length(%1)<=%2)")
            .arg(c)
            .arg(columna.caracteres);
    case TipoColumna::Boolean:
        // A yes/no is never Null, whoever writes it.
        return QStringLiteral("BOOLEAN NOT NULL ON CONFLICT REPLACE DEFAULT 0 "
                              "CHECK(typeof(%1)='integer')")
            .arg(c);
    }
    return {};
}

QString Prefijo(const QString& tabla) {
    return tabla.toLower() + QStringLiteral("__");
}

} // namespace

QString Citar(const QString& nombre) {
    QString doblado = nombre;
    doblado.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return QLatin1Char('"') + doblado + QLatin1Char('"');
}

QString SqlCrearTabla(const DefTabla& tabla) {
    QStringList columnas;
    for (const DefColumna& columna : tabla.columnas) {
        QString texto = Citar(columna.nombre) + QLatin1Char(' ');
        if (columnas.isEmpty()) {
            QString tipo = Tipo(columna);
            // The key's clause stands right behind the bare type.
            const QString clave = columna.tipo == TipoColumna::AutoLong
                                      ? QStringLiteral(" CONSTRAINT PrimaryKey PRIMARY KEY "
                                                       "AUTOINCREMENT")
                                      : QStringLiteral(" CONSTRAINT PrimaryKey PRIMARY KEY");
            tipo.insert(tipo.indexOf(QLatin1Char(' ')), clave);
            texto += tipo;
        } else {
            texto += Tipo(columna);
        }
        columnas.append(texto);
    }
    return QStringLiteral("CREATE TABLE ") + Citar(tabla.nombre) + QStringLiteral(" (\n  ") +
           columnas.join(QStringLiteral(",\n  ")) + QStringLiteral("\n)");
}

QString SqlCrearIndice(const DefIndice& indice) {
    QStringList columnas;
    for (const QString& columna : indice.columnas) {
        columnas.append(Citar(columna));
    }
    return (indice.unico ? QStringLiteral("CREATE UNIQUE INDEX ")
                         : QStringLiteral("CREATE INDEX ")) +
           Citar(IndiceFisico(indice.tabla, indice.nombre)) + QStringLiteral(" ON ") +
           Citar(indice.tabla) + QStringLiteral(" (") + columnas.join(QStringLiteral(", ")) +
           QLatin1Char(')');
}

QString SqlAñadirColumna(const QString& tabla, const DefColumna& columna) {
    return QStringLiteral("ALTER TABLE ") + Citar(tabla) + QStringLiteral(" ADD COLUMN ") +
           Citar(columna.nombre) + QLatin1Char(' ') + Tipo(columna);
}

QString IndiceFisico(const QString& tabla, const QString& indice) {
    return Prefijo(tabla) + indice;
}

QString IndiceLogico(const QString& tabla, const QString& fisico) {
    const QString prefijo = Prefijo(tabla);
    return fisico.startsWith(prefijo, Qt::CaseInsensitive) ? fisico.mid(prefijo.size()) : fisico;
}

} // namespace zv::esquemasqlite
