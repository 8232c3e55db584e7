// The socket keeps to the order of states and signals of a real one.
#include "fuzz/PasarelaBytes.h"

#include "fuzz/Fuzz.h"
#include "fuzz/RelojVirtual.h"

#include <QJsonDocument>
#include <QPointer>

#include <algorithm>
#include <cstring>

namespace zv::fuzz {

class SocketBytes final : public QTcpSocket {
  public:
    explicit SocketBytes(PasarelaBytes& pasarela) : pasarela_(pasarela) {}
    SocketBytes(const SocketBytes&) = delete;
    SocketBytes& operator=(const SocketBytes&) = delete;
    ~SocketBytes() override { Soltar(); }

    void connectToHost(const QString& /*host*/, quint16 /*puerto*/, OpenMode /*modo*/,
                       NetworkLayerProtocol /*protocolo*/) override {
        setSocketState(ConnectingState);
        QMetaObject::invokeMethod(
            this, [this] { Conectar(); }, Qt::QueuedConnection);
    }
    bool waitForConnected(int /*milisegundos*/) override {
        Conectar();
        return state() == ConnectedState;
    }
    bool waitForReadyRead(int milisegundos) override {
        const QPointer<SocketBytes> yo(this);
        if (pasarela_.Paso(false)) {
            return yo && bytesAvailable() > 0;
        }
        reloj::Avanzar(std::max(milisegundos, 0));
        return false;
    }
    void close() override {
        Soltar();
        // Not the socket's own, which would look for what is below it.
        QIODevice::close(); // NOLINT(bugprone-parent-virtual-call)
    }
    void disconnectFromHost() override { Soltar(); }
    qint64 bytesAvailable() const override {
        return entrada_.size() + QTcpSocket::bytesAvailable();
    }
    void setReadBufferSize(qint64 /*bytes*/) override {}
    void setSocketOption(SocketOption /*opcion*/, const QVariant& /*valor*/) override {}

    void Llegar(const QByteArray& bytes) {
        entrada_ += bytes;
        Q_EMIT readyRead();
    }
    void Caer(SocketError error) {
        const QPointer<SocketBytes> yo(this);
        setSocketError(error);
        Q_EMIT errorOccurred(error);
        if (yo && state() != UnconnectedState) {
            Soltar();
            Q_EMIT disconnected();
        }
    }

  protected:
    qint64 readData(char* destino, qint64 maximo) override {
        const qsizetype cuantos = std::min<qsizetype>(maximo, entrada_.size());
        std::memcpy(destino, entrada_.constData(), static_cast<size_t>(cuantos));
        entrada_.remove(0, cuantos);
        return cuantos;
    }
    qint64 writeData(const char* bytes, qint64 largo) override {
        Exige(state() == ConnectedState, "nothing is written to a closed link");
        pasarela_.Recibir(QByteArray(bytes, largo));
        return largo;
    }

  private:
    void Conectar() {
        if (state() != ConnectingState) {
            return;
        }
        if (pasarela_.Rechaza()) {
            setSocketState(UnconnectedState);
            setSocketError(ConnectionRefusedError);
            Q_EMIT errorOccurred(ConnectionRefusedError);
            return;
        }
        Exige(pasarela_.socket_ == nullptr, "one connection at a time");
        pasarela_.socket_ = this;
        pasarela_.pendiente_.clear();
        pasarela_.dicho_.clear();
        setOpenMode(ReadWrite);
        setSocketState(ConnectedState);
        Q_EMIT connected();
    }
    void Soltar() {
        setSocketState(UnconnectedState);
        entrada_.clear();
        if (pasarela_.socket_ == this) {
            pasarela_.socket_ = nullptr;
        }
    }

    PasarelaBytes& pasarela_;
    QByteArray entrada_;
};

std::unique_ptr<QTcpSocket> PasarelaBytes::NuevoSocket() {
    return std::make_unique<SocketBytes>(*this);
}

bool PasarelaBytes::Rechaza() {
    if (sitio_ < guion_.size() && guion_[sitio_] == '\x03') {
        ++sitio_;
        return true;
    }
    return porRechazar_ > 0 && porRechazar_-- > 0;
}

// The bytes up to the next that acts.
QByteArray PasarelaBytes::Trozo() {
    QByteArray trozo;
    for (; sitio_ < guion_.size(); ++sitio_) {
        const char c = guion_[sitio_];
        switch (c) {
        case '\x01':
        case '\x02':
        case '\x03':
        case '\x04':
        case '\x05':
        case '\x06':
        case '\x07':
            return trozo;
        case '\x0e':
            if (constexpr int kMaximo = 3; blancos_++ < kMaximo) {
                trozo.append(qsizetype{1} << 19, ' ');
            }
            break;
        case '\x10':
            trozo += opId_.toUtf8();
            break;
        case '\x11':
            trozo += QByteArray::number(ultimoId_);
            break;
        case '\x12':
            trozo += QByteArray::number(idCancelar_);
            break;
        case '\x13':
            trozo += QByteArray::number(idInicio_);
            break;
        case '\x14':
            trozo += QByteArray::number(idTerminar_);
            break;
        default:
            trozo += c;
        }
    }
    return trozo;
}

bool PasarelaBytes::Paso(bool enBucle) {
    if (Acabado()) {
        return false;
    }
    switch (guion_[sitio_]) {
    case '\x01':
        ++sitio_;
        return true;
    case '\x02':
        if (socket_ == nullptr) {
            return false;
        }
        ++sitio_;
        socket_->Caer(QAbstractSocket::RemoteHostClosedError);
        return true;
    case '\x03':
        ++sitio_;
        ++porRechazar_;
        return true;
    case '\x04':
        ++sitio_;
        reloj::Avanzar(1000);
        return true;
    case '\x05':
        ++sitio_;
        if (enBucle && alCancelar) {
            alCancelar();
        }
        return true;
    case '\x06':
        ++sitio_;
        if (enBucle && alPedirNiveles) {
            alPedirNiveles();
        }
        return true;
    case '\x07':
        ++sitio_;
        if (enBucle && alTerminar) {
            alTerminar();
        }
        return true;
    default:
        break;
    }
    if (socket_ == nullptr) {
        return false; // it waits until somebody listens
    }
    const QByteArray trozo = Trozo();
    Decir(trozo);
    socket_->Llegar(trozo);
    return true;
}

// Keeps account of what the client has been told.
void PasarelaBytes::Decir(const QByteArray& bytes) {
    dicho_ += bytes;
    qsizetype fin = 0;
    while ((fin = dicho_.indexOf('\n')) >= 0) {
        const QJsonObject objeto = QJsonDocument::fromJson(dicho_.left(fin)).object();
        dicho_.remove(0, fin + 1);
        const double codigo =
            objeto.value(QLatin1String("error")).toObject().value(QLatin1String("code")).toDouble();
        desconocidas_ += codigo == -32011 ? 1 : 0;
        for (const char* parte : {"result", "params"}) {
            const QJsonObject dicha = objeto.value(QLatin1String(parte)).toObject();
            for (const QJsonObject& estado :
                 {dicha, dicha.value(QLatin1String("openOp")).toObject()}) {
                if (estado.value(QLatin1String("state")).toString() == QLatin1String("done")) {
                    hechas_.insert(estado.value(QLatin1String("opId")).toString());
                }
            }
        }
    }
}

void PasarelaBytes::Recibir(const QByteArray& bytes) {
    pendiente_ += bytes;
    qsizetype fin = 0;
    while ((fin = pendiente_.indexOf('\n')) >= 0) {
        const QJsonDocument documento = QJsonDocument::fromJson(pendiente_.left(fin));
        pendiente_.remove(0, fin + 1);
        Exige(documento.isObject(), "a request is one object a line");
        Peticion(documento.object());
    }
}

void PasarelaBytes::Peticion(const QJsonObject& peticion) {
    const qint64 id = peticion.value(QLatin1String("id")).toInteger();
    Exige(peticion.value(QLatin1String("jsonrpc")).toString() == QLatin1String("2.0"),
          "a request names its version");
    Exige(id > ultimoId_, "ids rise");
    ultimoId_ = id;
    const QString metodo = peticion.value(QLatin1String("method")).toString();
    const QString opId =
        peticion.value(QLatin1String("params")).toObject().value(QLatin1String("opId")).toString();
    const bool inicio = metodo.endsWith(QLatin1String(".start")) ||
                        metodo == QLatin1String("cashBox.control") ||
                        metodo == QLatin1String("box.empty");
    if (inicio) {
        Exige(!opId.isEmpty() && opId.size() <= 64, "a start carries its opId");
        const int veces = ++inicios_[opId];
        Exige(veces == 1 || veces <= 1 + desconocidas_,
              "a start is sent again only to a gateway that does not know it");
        Exige(movida_ != opId, "what has moved money is not started again");
        opId_ = opId;
        idInicio_ = id;
        abierta_ =
            metodo == QLatin1String("change.start") || metodo == QLatin1String("addChange.start");
    } else if (metodo == QLatin1String("op.cancel")) {
        opId_ = opId;
        idCancelar_ = id;
    } else if (metodo == QLatin1String("op.finish")) {
        Exige(opId == opId_ && abierta_, "only a change or a float is ended from here");
        idTerminar_ = id;
    } else if (metodo == QLatin1String("op.ack")) {
        Exige(hechas_.contains(opId) || desconocidas_ > 0,
              "only an operation that has ended is acknowledged");
    } else {
        Exige(metodo == QLatin1String("ping") || metodo == QLatin1String("session.hello") ||
                  metodo == QLatin1String("op.status") || metodo == QLatin1String("levels.get") ||
                  metodo == QLatin1String("device.configuration"),
              "methods are those of the protocol");
    }
}

} // namespace zv::fuzz
