// A client of the gateway for tests: sends requests, keeps all that comes.
#pragma once

#include "platform/StringLiterals.h"
#include "support/Esperas.h"

#include <QHostAddress>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTcpSocket>

#include <utility>
#include <vector>

namespace zv::simulador {

using test::Esperar;

class ClientePrueba {
  public:
    explicit ClientePrueba(quint16 puerto) {
        socket.connectToHost(QHostAddress::LocalHost, puerto);
    }

    bool Conectado() {
        return Esperar([this] { return socket.state() == QAbstractSocket::ConnectedState; });
    }
    bool Cerrado() {
        return Esperar([this] {
            Leer();
            return socket.state() == QAbstractSocket::UnconnectedState;
        });
    }
    void Crudo(const QByteArray& bytes) { socket.write(bytes); }

    // Sends a request without waiting; answers its id.
    int Pedir(const QString& metodo, QJsonObject params = {}) {
        const int id = ++ultimoId_;
        const QJsonObject peticion{{u"jsonrpc"_s, u"2.0"_s},
                                   {u"id"_s, id},
                                   {u"method"_s, metodo},
                                   {u"params"_s, std::move(params)}};
        Crudo(QJsonDocument(peticion).toJson(QJsonDocument::Compact) + '\n');
        return id;
    }
    // The answer with that id; empty when it does not come.
    QJsonObject Respuesta(const QJsonValue& id) {
        QJsonObject hallada;
        Esperar([&] {
            Leer();
            for (const QJsonObject& uno : mensajes) {
                if (uno.contains(u"id"_s) && uno.value(u"id"_s) == id) {
                    hallada = uno;
                }
            }
            return !hallada.isEmpty() || socket.state() == QAbstractSocket::UnconnectedState;
        });
        return hallada;
    }
    QJsonObject Resultado(const QString& metodo, QJsonObject params = {}) {
        return Respuesta(Pedir(metodo, std::move(params))).value(u"result"_s).toObject();
    }
    int Error(const QString& metodo, QJsonObject params = {}) {
        return Respuesta(Pedir(metodo, std::move(params)))
            .value(u"error"_s)
            .toObject()
            .value(u"code"_s)
            .toInt();
    }
    QJsonObject Saludar() {
        return Resultado(u"session.hello"_s, {{u"protocol"_s, 1}, {u"client"_s, u"prueba"_s}});
    }

    // The states that the notifications of a kind have brought so far.
    std::vector<QJsonObject> Avisos(const QString& metodo) {
        Leer();
        std::vector<QJsonObject> avisos;
        for (const QJsonObject& uno : mensajes) {
            if (uno.value(u"method"_s).toString() == metodo) {
                avisos.push_back(uno.value(u"params"_s).toObject());
            }
        }
        return avisos;
    }
    bool EsperarAviso(const QString& metodo, std::size_t cuantos = 1) {
        return Esperar([&] { return Avisos(metodo).size() >= cuantos; });
    }
    // The state of op.result; empty when it does not come.
    QJsonObject Fin() {
        const QString metodo = u"op.result"_s;
        return EsperarAviso(metodo) ? Avisos(metodo).back() : QJsonObject();
    }

    QTcpSocket socket;
    std::vector<QJsonObject> mensajes; // in their order
    int rarezas = 0;                   // lines that were no message

  private:
    void Leer() {
        pendiente_ += socket.readAll();
        for (qsizetype fin = pendiente_.indexOf('\n'); fin >= 0; fin = pendiente_.indexOf('\n')) {
            const QJsonDocument linea = QJsonDocument::fromJson(pendiente_.left(fin));
            if (linea.isObject()) {
                mensajes.push_back(linea.object());
            } else {
                ++rarezas;
            }
            pendiente_.remove(0, fin + 1);
        }
    }

    QByteArray pendiente_;
    int ultimoId_ = 0;
};

} // namespace zv::simulador
