// The scripted gateway of the tests.
#include "support/PasarelaGuion.h"

#include "platform/StringLiterals.h"

#include <QDeadlineTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTcpServer>
#include <QTcpSocket>

#include <gtest/gtest.h>

namespace zv {

namespace {

constexpr int kPaciencia = 5000; // ms

QByteArray Linea(QJsonObject objeto) {
    objeto.insert(u"jsonrpc"_s, u"2.0"_s);
    return QJsonDocument(objeto).toJson(QJsonDocument::Compact) + '\n';
}

QString Metodo(const QJsonObject& peticion) {
    return peticion.value(u"method"_s).toString();
}

} // namespace

void EnlaceGuion::Crudo(const QByteArray& bytes) {
    socket_.write(bytes);
    socket_.flush();
}

void EnlaceGuion::Contestar(const QJsonObject& peticion, const QJsonValue& resultado) {
    Crudo(Linea({{u"id"_s, peticion.value(u"id"_s)}, {u"result"_s, resultado}}));
}

void EnlaceGuion::Rechazar(const QJsonObject& peticion, int codigo, const QString& mensaje,
                           const QJsonObject& datos) {
    QJsonObject error{{u"code"_s, codigo}, {u"message"_s, mensaje}};
    if (!datos.isEmpty()) {
        error.insert(u"data"_s, datos);
    }
    Crudo(Linea({{u"id"_s, peticion.value(u"id"_s)}, {u"error"_s, error}}));
}

void EnlaceGuion::Notificar(const QString& metodo, const QJsonObject& params) {
    Crudo(Linea({{u"method"_s, metodo}, {u"params"_s, params}}));
}

void EnlaceGuion::Cortar() {
    socket_.flush();
    socket_.close();
}

PasarelaGuion::PasarelaGuion() : contexto_(std::make_unique<QObject>()) {
    saludo_ = {{u"protocol"_s, 1},
               {u"device"_s, u"Guion"_s},
               {u"storeId"_s, u"almacen-1"_s},
               {u"currency"_s, u"EUR"_s},
               {u"decimals"_s, 2},
               {u"multiplier"_s, 100},
               {u"openOp"_s, QJsonValue::Null}};
    contexto_->moveToThread(&hilo_);
    hilo_.start();
    Encender();
}

PasarelaGuion::~PasarelaGuion() {
    EnHilo([this] {
        servidor_.reset();
        cliente_ = nullptr;
    });
    hilo_.quit();
    hilo_.wait();
    for (const auto& [metodo, reacciones] : unaVez_) {
        if (!reacciones.empty()) {
            ADD_FAILURE() << reacciones.size() << " reaction(s) to " << metodo.toStdString()
                          << " were never met";
        }
    }
}

void PasarelaGuion::EnHilo(const std::function<void()>& accion) {
    QMetaObject::invokeMethod(contexto_.get(), accion, Qt::BlockingQueuedConnection);
}

QString PasarelaGuion::Direccion() const {
    return u"127.0.0.1:%1"_s.arg(puerto_);
}

void PasarelaGuion::Al(const QString& metodo, Reaccion reaccion) {
    const QMutexLocker guarda(&cerrojo_);
    unaVez_[metodo].push_back(std::move(reaccion));
}

void PasarelaGuion::Siempre(const QString& metodo, Reaccion reaccion) {
    const QMutexLocker guarda(&cerrojo_);
    siempre_[metodo] = std::move(reaccion);
}

void PasarelaGuion::PonerSaludo(const QString& miembro, const QJsonValue& valor) {
    const QMutexLocker guarda(&cerrojo_);
    saludo_.insert(miembro, valor);
}

void PasarelaGuion::Encender() {
    EnHilo([this] { Escuchar(); });
}

void PasarelaGuion::Escuchar() {
    if (servidor_) {
        return;
    }
    servidor_ = std::make_unique<QTcpServer>();
    QObject::connect(servidor_.get(), &QTcpServer::newConnection, servidor_.get(),
                     [this] { AlConectar(); });
    ASSERT_TRUE(servidor_->listen(QHostAddress::LocalHost, puerto_))
        << servidor_->errorString().toStdString();
    puerto_ = servidor_->serverPort();
}

void PasarelaGuion::Apagar() {
    EnHilo([this] {
        if (cliente_ != nullptr) {
            cliente_->abort();
        }
        cliente_ = nullptr;
        servidor_.reset();
    });
}

void PasarelaGuion::Cortar() {
    EnHilo([this] {
        if (cliente_ != nullptr) {
            cliente_->close();
        }
    });
}

void PasarelaGuion::Notificar(const QString& metodo, const QJsonObject& params) {
    EnHilo([&] {
        if (cliente_ != nullptr) {
            EnlaceGuion(*cliente_).Notificar(metodo, params);
        }
    });
}

void PasarelaGuion::Crudo(const QByteArray& bytes) {
    EnHilo([&] {
        if (cliente_ != nullptr) {
            EnlaceGuion(*cliente_).Crudo(bytes);
        }
    });
}

void PasarelaGuion::AlConectar() {
    while (QTcpSocket* nuevo = servidor_->nextPendingConnection()) {
        QTcpSocket* viejo = cliente_;
        cliente_ = nuevo;
        pendiente_.clear();
        if (viejo != nullptr) {
            viejo->disconnect();
            viejo->abort();
            viejo->deleteLater();
        }
        nuevo->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        QObject::connect(nuevo, &QTcpSocket::readyRead, nuevo, [this] { AlLeer(); });
        QObject::connect(nuevo, &QTcpSocket::disconnected, nuevo, [this] {
            const QMutexLocker guarda(&cerrojo_);
            ++cortes_;
            llegada_.wakeAll();
        });
        const QMutexLocker guarda(&cerrojo_);
        ++conexiones_;
        llegada_.wakeAll();
    }
}

void PasarelaGuion::AlLeer() {
    const QTcpSocket* const actual = cliente_;
    pendiente_ += cliente_->readAll();
    while (cliente_ == actual && actual != nullptr && actual->isOpen()) {
        const qsizetype fin = pendiente_.indexOf('\n');
        if (fin < 0) {
            return;
        }
        const QByteArray linea = pendiente_.left(fin);
        pendiente_.remove(0, fin + 1);
        const QJsonDocument documento = QJsonDocument::fromJson(linea);
        EXPECT_TRUE(documento.isObject()) << linea.toStdString();
        Atender(documento.object());
    }
}

void PasarelaGuion::Atender(const QJsonObject& peticion) {
    Reaccion reaccion;
    {
        const QMutexLocker guarda(&cerrojo_);
        // Before the answer: a client that has its answer finds the request here.
        recibidas_.append(peticion);
        llegada_.wakeAll();
        const QString metodo = Metodo(peticion);
        auto una = unaVez_.find(metodo);
        auto fija = siempre_.find(metodo);
        if (una != unaVez_.end() && !una->second.empty()) {
            reaccion = std::move(una->second.front());
            una->second.pop_front();
        } else if (fija != siempre_.end()) {
            reaccion = fija->second;
        }
    }
    EnlaceGuion enlace(*cliente_);
    if (reaccion) {
        reaccion(enlace, peticion);
    } else {
        Defecto(enlace, peticion);
    }
}

void PasarelaGuion::Defecto(EnlaceGuion& enlace, const QJsonObject& peticion) {
    const QString metodo = Metodo(peticion);
    const QString opId = OpId(peticion);
    if (metodo == QLatin1String("session.hello")) {
        QJsonObject saludo;
        {
            const QMutexLocker guarda(&cerrojo_);
            saludo = saludo_;
        }
        enlace.Contestar(peticion, saludo);
    } else if (metodo == QLatin1String("op.status") || metodo == QLatin1String("op.cancel")) {
        enlace.Rechazar(peticion, -32011, u"operación desconocida"_s);
    } else if (metodo == QLatin1String("levels.get")) {
        enlace.Contestar(peticion, QJsonObject{{u"noms"_s, QJsonArray{100, 200, 500}},
                                               {u"levels"_s, QJsonArray{3, 2, 1}}});
    } else if (!opId.isEmpty() && metodo != QLatin1String("op.ack")) {
        enlace.Contestar(peticion, EnMarcha(opId, metodo, 0, 0));
        enlace.Notificar(u"op.result"_s, Hecha(opId, metodo, 0, 0));
    } else {
        enlace.Contestar(peticion, QJsonObject{});
    }
}

QList<QJsonObject> PasarelaGuion::Recibidas(const QString& metodo) const {
    const QMutexLocker guarda(&cerrojo_);
    QList<QJsonObject> lista;
    for (const QJsonObject& peticion : recibidas_) {
        if (metodo.isEmpty() || Metodo(peticion) == metodo) {
            lista.append(peticion);
        }
    }
    return lista;
}

QStringList PasarelaGuion::Metodos() const {
    QStringList lista;
    for (const QJsonObject& peticion : Recibidas()) {
        if (Metodo(peticion) != QLatin1String("ping")) {
            lista.append(Metodo(peticion));
        }
    }
    return lista;
}

bool PasarelaGuion::EsperaCorte() const {
    const QDeadlineTimer limite(kPaciencia);
    const QMutexLocker guarda(&cerrojo_);
    while (cortes_ == 0) {
        if (!llegada_.wait(&cerrojo_, limite)) {
            return false;
        }
    }
    return true;
}

bool PasarelaGuion::Espera(const QString& metodo, int cuantas) const {
    const QDeadlineTimer limite(kPaciencia);
    const QMutexLocker guarda(&cerrojo_);
    const auto llegadas = [&] {
        return std::count_if(recibidas_.cbegin(), recibidas_.cend(),
                             [&](const QJsonObject& p) { return Metodo(p) == metodo; });
    };
    while (llegadas() < cuantas) {
        if (!llegada_.wait(&cerrojo_, limite)) {
            return false;
        }
    }
    return true;
}

int PasarelaGuion::Conexiones() const {
    const QMutexLocker guarda(&cerrojo_);
    return conexiones_;
}

QJsonObject PasarelaGuion::EnMarcha(const QString& opId, const QString& metodo, qint64 paidIn,
                                    qint64 paidOut) {
    return {{u"opId"_s, opId},
            {u"method"_s, metodo},
            {u"state"_s, u"running"_s},
            {u"paidIn"_s, paidIn},
            {u"paidOut"_s, paidOut}};
}

QJsonObject PasarelaGuion::Hecha(const QString& opId, const QString& metodo, qint64 paidIn,
                                 qint64 paidOut) {
    QJsonObject estado = EnMarcha(opId, metodo, paidIn, paidOut);
    estado.insert(u"state"_s, u"done"_s);
    estado.insert(u"ok"_s, true);
    estado.insert(u"errorCode"_s, 0);
    estado.insert(u"errorMessage"_s, QString());
    return estado;
}

QJsonObject PasarelaGuion::Fallida(const QString& opId, const QString& metodo, int codigo,
                                   const QString& mensaje, qint64 paidIn, qint64 paidOut) {
    QJsonObject estado = Hecha(opId, metodo, paidIn, paidOut);
    estado.insert(u"ok"_s, false);
    estado.insert(u"errorCode"_s, codigo);
    estado.insert(u"errorMessage"_s, mensaje);
    return estado;
}

QString PasarelaGuion::OpId(const QJsonObject& peticion) {
    return peticion.value(u"params"_s).toObject().value(u"opId"_s).toString();
}

} // namespace zv
