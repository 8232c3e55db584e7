#include "store/sqlite/SqliteConnection.h"

#include "platform/StringLiterals.h"
#include "store/TextoCitado.h"
#include "store/sqlite/SqliteErrors.h"

#include <QFileInfo>
#include <QSqlError>
#include <QSqlRecord>
#include <QUrl>
#include <QUuid>

#include <limits>

namespace zv {

namespace {

// Statements of the system are few; those with a number in their text must not pile up.
constexpr std::size_t kMaximoPreparadas = 64;

ErrorEjecucion Fallo(const QSqlError& error) {
    bool esNumero = false;
    const int numero = error.nativeErrorCode().toInt(&esNumero);
    const QString texto =
        error.databaseText().isEmpty() ? error.driverText() : error.databaseText();
    return {esNumero ? numero : kErrorSQLite, texto};
}

const TextoCitado* CitadoDe(const QVariant& valor) {
    return valor.metaType() == QMetaType::fromType<TextoCitado>()
               ? static_cast<const TextoCitado*>(valor.constData())
               : nullptr;
}

// SQLite's own failure for a literal that does not end. It tells nothing of the text, which may be
// a password and would come into the log.
void ExigirEnteros(const Parametros& parametros) {
    for (const QVariant& valor : parametros) {
        const TextoCitado* citado = CitadoDe(valor);
        if (citado != nullptr &&
            (citado->texto.contains(QLatin1Char('\'')) || citado->texto.contains(QChar(u'\0')))) {
            throw ErrorEjecucion(kErrorSQLite, u"unrecognized token: \"'\""_s);
        }
    }
}

// Finishes the statement on every way out: an open one would freeze the connection's view.
class FinishGuard {
  public:
    FinishGuard(QSqlQuery& consulta, bool& ocupada) : consulta_(consulta), ocupada_(ocupada) {
        ocupada_ = true;
    }
    ~FinishGuard() {
        consulta_.finish();
        ocupada_ = false;
    }
    FinishGuard(const FinishGuard&) = delete;
    FinishGuard& operator=(const FinishGuard&) = delete;

  private:
    QSqlQuery& consulta_;
    bool& ocupada_;
};

} // namespace

QVariant SqliteConnection::Valor(const QVariant& valor) {
    switch (valor.typeId()) {
    case QMetaType::QString: {
        // QtSql takes a null QString for Null.
        const QString texto = valor.toString();
        return texto.isNull() ? QVariant(QLatin1String("")) : valor;
    }
    case QMetaType::QDateTime: {
        const QDateTime fecha = valor.toDateTime();
        return fecha.isValid() ? QVariant(fecha.toLocalTime().toString(u"yyyy-MM-dd HH:mm:ss"))
                               : QVariant();
    }
    case QMetaType::QDate: {
        const QDate fecha = valor.toDate();
        return fecha.isValid() ? QVariant(fecha.toString(u"yyyy-MM-dd")) : QVariant();
    }
    case QMetaType::Bool:
        return valor.toBool() ? 1 : 0;
    default:
        if (const TextoCitado* citado = CitadoDe(valor)) {
            return Valor(citado->texto);
        }
        return valor.metaType() == QMetaType::fromType<Currency>()
                   ? ValorBD(valor.value<Currency>())
                   : valor;
    }
}

ErrorEjecucion SqliteConnection::Cerrada() {
    return {kErrorCerrada, u"la conexión con la base de datos está cerrada"_s};
}

void SqliteConnection::Abrir(const QString& ruta, Modo modo, std::chrono::milliseconds espera) {
    Cerrar();
    espera_ = espera;
    const QString nombre = u"zv_"_s + QUuid::createUuid().toString(QUuid::WithoutBraces);
    base_ = QSqlDatabase::addDatabase(u"QSQLITE"_s, nombre);
    if (!base_.isValid()) {
        const ErrorEjecucion fallo = Fallo(base_.lastError());
        base_ = QSqlDatabase();
        QSqlDatabase::removeDatabase(nombre);
        throw fallo;
    }
    base_.setConnectOptions(u"QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=%1"_s.arg(espera.count()));
    // By address: mode=rw never creates a file.
    base_.setDatabaseName(
        u"file:"_s +
        QString::fromLatin1(QUrl::toPercentEncoding(QFileInfo(ruta).absoluteFilePath(), "/")) +
        (modo == Modo::Inmutable ? u"?mode=ro&immutable=1"_s : u"?mode=rw"_s));
    if (!base_.open()) {
        const ErrorEjecucion fallo = Fallo(base_.lastError());
        Cerrar();
        throw fallo;
    }
    abierta_ = true;
}

void SqliteConnection::PonerEspera(std::chrono::milliseconds espera) {
    Ejecutar(u"PRAGMA busy_timeout=%1"_s.arg(espera.count()));
}

SqliteConnection::LockWait::~LockWait() {
    try {
        conexion_.PonerEspera(conexion_.espera_);
    } catch (const ErrorEjecucion&) {
        return; // a connection that cannot take it fails at its next statement
    }
}

void SqliteConnection::Cerrar() {
    if (!base_.isValid()) {
        return;
    }
    abierta_ = false;
    preparadas_.clear();
    const QString nombre = base_.connectionName();
    base_.close();
    base_ = QSqlDatabase();
    QSqlDatabase::removeDatabase(nombre);
}

SqliteConnection::Preparada& SqliteConnection::Preparar(const QString& sql,
                                                        std::size_t parametros) {
    auto sitio = preparadas_.find(sql);
    if (sitio == preparadas_.end()) {
        if (preparadas_.size() >= kMaximoPreparadas) {
            QString masVieja;
            quint64 menor = std::numeric_limits<quint64>::max();
            for (const auto& [texto, preparada] : preparadas_) {
                if (preparada.usada < menor) {
                    menor = preparada.usada;
                    masVieja = texto;
                }
            }
            preparadas_.erase(masVieja);
        }
        Preparada nueva{QSqlQuery(base_), nullptr, parametros, 0};
        nueva.consulta.setForwardOnly(true);
        if (!nueva.consulta.prepare(sql)) {
            throw Fallo(nueva.consulta.lastError());
        }
        sitio = preparadas_.emplace(sql, std::move(nueva)).first;
    } else if (sitio->second.parametros != parametros) {
        // QtSql would take the missing ones from the last run.
        throw ErrorEjecucion(kErrorParametros, u"número de parámetros incorrecto"_s);
    }
    sitio->second.usada = ++usos_;
    return sitio->second;
}

void SqliteConnection::Compilar(const QString& sql, std::size_t parametros) {
    if (!Abierta()) {
        throw Cerrada();
    }
    Preparar(sql, parametros);
}

qint64 SqliteConnection::Ejecutar(const QString& sql, const Parametros& parametros,
                                  const Visita& visita) {
    if (!Abierta()) {
        throw Cerrada();
    }
    if (ocupada_) {
        throw ErrorEjecucion(kErrorUso, u"la conexión está recorriendo una consulta"_s);
    }
    ExigirEnteros(parametros);
    Preparada& preparada = Preparar(sql, parametros.size());
    std::optional<ErrorEjecucion> fallo;
    qint64 tocadas = 0;
    {
        QSqlQuery& consulta = preparada.consulta;
        const FinishGuard finish(consulta, ocupada_);
        int posicion = 0;
        for (const QVariant& valor : parametros) {
            consulta.bindValue(posicion++, Valor(valor));
        }
        if (consulta.exec()) {
            if (visita && consulta.isSelect()) {
                if (!preparada.columnas) {
                    const QSqlRecord registro = consulta.record();
                    QStringList nombres;
                    nombres.reserve(registro.count());
                    for (int i = 0; i < registro.count(); ++i) {
                        nombres.append(registro.fieldName(i));
                    }
                    preparada.columnas = std::make_shared<const QStringList>(std::move(nombres));
                }
                while (consulta.next() && visita(consulta, preparada.columnas)) {
                }
            }
            tocadas = consulta.numRowsAffected();
        }
        // Also a failure on the way through the rows.
        if (consulta.lastError().isValid()) {
            fallo = Fallo(consulta.lastError());
        }
    }
    if (fallo) {
        preparadas_.erase(sql);
        throw *fallo; // NOLINT(bugprone-unchecked-optional-access)
    }
    return tocadas;
}

} // namespace zv
