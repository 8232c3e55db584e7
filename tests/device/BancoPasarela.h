// What the tests of the gateway client share: a scripted gateway, a client with short time-outs,
// and the calls in a form that is easy to compare.
#pragma once

#include "device/gateway/GatewayClient.h"
#include "platform/StringLiterals.h"
#include "support/ImprimeQt.h"
#include "support/LogMemoria.h"
#include "support/PasarelaGuion.h"
#include "support/VentanaGuion.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zv {

class BancoPasarela : public testing::Test {
  protected:
    // Quick where nothing is expected to run out, patient where a slow machine must not matter.
    static GatewayOptions Rapidas() {
        GatewayOptions o;
        o.ping = 20;
        o.pingReposo = 20;
        o.reintento = 5;
        o.tic = 2;
        o.pausaReapertura = 0;
        return o;
    }

    GatewayClient& Cliente(const GatewayOptions& opciones = Rapidas()) {
        cliente_ = std::make_unique<GatewayClient>(log, textos, &ventana, opciones);
        cliente_->Address(pasarela.Direccion());
        return *cliente_;
    }
    GatewayClient& Conectado(const GatewayOptions& opciones = Rapidas()) {
        GatewayClient& cliente = Cliente(opciones);
        bool bien = false;
        cliente.Connect(bien);
        EXPECT_TRUE(bien) << cliente.ErrorMessage().toStdString();
        return cliente;
    }

    // "result in out code", the whole answer of a charge.
    static QString Cobrar(GatewayClient& cliente, qint32 importe = 1250) {
        qint32 entra = -1;
        qint32 sale = -1;
        bool bien = false;
        cliente.Charge(importe, entra, sale, bien);
        return u"%1 %2 %3 %4"_s.arg(bien ? u"ok"_s : u"no"_s)
            .arg(entra)
            .arg(sale)
            .arg(cliente.ErrorCode());
    }
    static bool Niveles(GatewayClient& cliente) {
        QString noms;
        QString levels;
        bool bien = false;
        cliente.GetLevels(2, noms, levels, bien);
        return bien;
    }

    // Reactions to the start of an operation.
    static PasarelaGuion::Reaccion Termina(qint64 entra, qint64 sale) {
        return [=](EnlaceGuion& enlace, const QJsonObject& peticion) {
            const QString op = PasarelaGuion::OpId(peticion);
            const QString metodo = Metodo(peticion);
            enlace.Contestar(peticion, PasarelaGuion::EnMarcha(op, metodo, 0, 0));
            enlace.Notificar(u"op.result"_s, PasarelaGuion::Hecha(op, metodo, entra, sale));
        };
    }
    static PasarelaGuion::Reaccion Falla(int codigo, const QString& mensaje, qint64 entra,
                                         qint64 sale) {
        return [=](EnlaceGuion& enlace, const QJsonObject& peticion) {
            const QString op = PasarelaGuion::OpId(peticion);
            const QString metodo = Metodo(peticion);
            enlace.Contestar(peticion, PasarelaGuion::EnMarcha(op, metodo, 0, 0));
            enlace.Notificar(u"op.result"_s,
                             PasarelaGuion::Fallida(op, metodo, codigo, mensaje, entra, sale));
        };
    }
    // Starts, tells the progress when there is some, and does no more.
    static PasarelaGuion::Reaccion Empieza(qint64 entra = 0) {
        return [=](EnlaceGuion& enlace, const QJsonObject& peticion) {
            const QString op = PasarelaGuion::OpId(peticion);
            const QString metodo = Metodo(peticion);
            enlace.Contestar(peticion, PasarelaGuion::EnMarcha(op, metodo, 0, 0));
            if (entra != 0) {
                enlace.Notificar(u"op.progress"_s, PasarelaGuion::EnMarcha(op, metodo, entra, 0));
            }
        };
    }
    static PasarelaGuion::Reaccion Contesta(const std::function<QJsonObject(QString)>& estado) {
        return [=](EnlaceGuion& enlace, const QJsonObject& peticion) {
            enlace.Contestar(peticion, estado(PasarelaGuion::OpId(peticion)));
        };
    }
    static PasarelaGuion::Reaccion Corta() {
        return [](EnlaceGuion& enlace, const QJsonObject&) { enlace.Cortar(); };
    }
    static PasarelaGuion::Reaccion Calla() {
        return [](EnlaceGuion&, const QJsonObject&) {};
    }
    static PasarelaGuion::Reaccion Escupe(const QByteArray& bytes) {
        return [=](EnlaceGuion& enlace, const QJsonObject&) { enlace.Crudo(bytes); };
    }
    static QJsonObject CobroEnMarcha(const QString& op, qint64 entra) {
        return PasarelaGuion::EnMarcha(op, kCobro(), entra, 0);
    }
    static QJsonObject CobroHecho(const QString& op, qint64 entra, qint64 sale) {
        return PasarelaGuion::Hecha(op, kCobro(), entra, sale);
    }
    static QString Metodo(const QJsonObject& peticion) {
        return peticion.value(u"method"_s).toString();
    }
    static QString kCobro() { return u"charge.start"_s; }
    // The opId of the n-th request of that method.
    QString OpId(const QString& metodo, int n = 0) const {
        return PasarelaGuion::OpId(pasarela.Recibidas(metodo).value(n));
    }
    // The log's line for the end of the operation that the n-th request of that method has started.
    QString LineaFin(const QString& metodo, int n, const QString& resto,
                     const QString& como = u"terminada"_s) const {
        return u">>> Operación "_s + como + u" en Zorvex: "_s + metodo + u' ' + OpId(metodo, n) +
               u' ' + resto;
    }
    static QStringList Lista(std::initializer_list<const char*> textos) {
        QStringList lista;
        for (const char* texto : textos) {
            lista << QString::fromUtf8(texto);
        }
        return lista;
    }

    QTemporaryDir carpeta;
    PasarelaGuion pasarela;
    test::LogMemoria log;
    Textos textos{carpeta.path()};
    VentanaGuion ventana;

  private:
    std::unique_ptr<GatewayClient> cliente_;
};

} // namespace zv
