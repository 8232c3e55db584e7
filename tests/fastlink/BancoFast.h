// A server on 127.0.0.1 over a real database, with clients of the test's own.
#pragma once

#include "config/ConfiguracioGlobal.h"
#include "fastlink/ServidorFast.h"
#include "platform/StringLiterals.h"
#include "support/BaseDeDatosTemporal.h"
#include "support/CarpetaTemporal.h"
#include "support/Esperas.h"
#include "support/FixedClock.h"
#include "support/GanchoFallos.h"
#include "support/ImprimeQt.h"

#include <QTcpSocket>

#include <gtest/gtest.h>

namespace zv::test {

class BancoFast : public testing::Test {
  protected:
    BancoFast() {
        datos.Inicialitza();
        configuracio->zvFastActive = true;
        configuracio->ZVFastPort = u"0"_s;
    }

    std::unique_ptr<QTcpSocket> Conectar() { return Conectar(servidor.WS().Puerto()); }
    std::unique_ptr<QTcpSocket> Conectar(quint16 puerto) {
        auto cliente = std::make_unique<QTcpSocket>();
        cliente->connectToHost(QHostAddress::LocalHost, puerto);
        EXPECT_TRUE(Esperar([&] { return cliente->state() == QAbstractSocket::ConnectedState; }));
        return cliente;
    }
    // Waits until WS(indice) is connected, so that the next client finds it taken.
    bool EsperaConectado(qint16 indice) {
        return Esperar([&] { return servidor.WS().Conectado(indice); });
    }
    bool EsperaCerrado(qint16 indice) {
        return Esperar([&] { return !servidor.WS().Conectado(indice); });
    }
    // Sends one message and waits for the answer, which has no terminator.
    static QByteArray Pregunta(QTcpSocket& cliente, const QByteArray& mensaje) {
        cliente.write(mensaje);
        EXPECT_TRUE(Esperar([&] { return cliente.bytesAvailable() > 0; })) << mensaje.constData();
        return cliente.readAll();
    }
    bool EsperaEnCola(std::size_t cuantos) {
        return Esperar([&] { return servidor.MensajesEnCola() == cuantos; });
    }

    BaseDeDatosTemporal base;
    DatabaseEngine& motor = base.Database();
    FixedClock reloj;
    dades datos{motor, reloj};
    LogMemoria log;
    DialogosGuion dialogos;
    CarpetaTemporal carpeta;
    ModuloIni ini{log, dialogos};
    RegistryTree registry{carpeta.Ruta(u"Registro"_s)};
    FormatoRegional formato{u"es_ES"_s};
    ConfiguracioGlobal configuracio{
        std::make_unique<Configuracio>(ini, registry, carpeta.Ruta(), formato)};
    dades* visibles = &datos;
    bool esperar = false;
    int preparados = 0;
    ServidorFast servidor{
        configuracio,
        formato,
        log,
        {[this] { return visibles; }, [this] { return esperar; }, [this] { ++preparados; }},
        QHostAddress(QHostAddress::LocalHost)};
};

} // namespace zv::test
