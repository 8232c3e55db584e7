// A client of the gateway for tests: sends requests, keeps all that comes.
#pragma once

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
        const QJsonObject peticion{{QStringLiteral("jsonrpc"), QStringLiteral("2.0")},
                                   {QStringLiteral("id"), id},
                                   {QStringLiteral("method"), metodo},
                                   {QStringLiteral("params"), std::move(params)}};
        Crudo(QJsonDocument(peticion).toJson(QJsonDocument::Compact) + '\n');
        return id;
    }
    // The answer with that id; empty when it does not come.
    QJsonObject Respuesta(const QJsonValue& id) {
        QJsonObject hallada;
        Esperar([&] {
            Leer();
            for (const QJsonObject& uno : mensajes) {
                if (uno.contains(QStringLiteral("id")) && uno.value(QStringLiteral("id")) == id)
                    hallada = uno;
            }
            return !hallada.isEmpty() || socket.state() == QAbstractSocket::UnconnectedState;
        });
        return hallada;
    }
    QJsonObject Resultado(const QString& metodo, QJsonObject params = {}) {
        return Respuesta(Pedir(metodo, std::move(params)))
            .value(QStringLiteral("result"))
            .toObject();
    }
    int Error(const QString& metodo, QJsonObject params = {}) {
        return Respuesta(Pedir(metodo, std::move(params)))
            .value(QStringLiteral("error"))
            .toObject()
            .value(QStringLiteral("code"))
            .toInt();
    }
    QJsonObject Saludar() {
        return Resultado(QStringLiteral("session.hello"),
                         {{QStringLiteral("protocol"), 1},
                          {QStringLiteral("client"), QStringLiteral("prueba")}});
    }

    // The states that the notifications of a kind have brought so far.
    std::vector<QJsonObject> Avisos(const QString& metodo) {
        Leer();
        std::vector<QJsonObject> avisos;
        for (const QJsonObject& uno : mensajes) {
            if (uno.value(QStringLiteral("method")).toString() == metodo)
                avisos.push_back(uno.value(QStringLiteral("params")).toObject());
        }
        return avisos;
    }
    bool EsperarAviso(const QString& metodo, std::size_t cuantos = 1) {
        return Esperar([&] { return Avisos(metodo).size() >= cuantos; });
    }
    // The state of op.result; empty when it does not come.
    QJsonObject Fin() {
        const QString metodo = QStringLiteral("op.result");
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
            if (linea.isObject())
                mensajes.push_back(linea.object());
            else
                ++rarezas;
            pendiente_.remove(0, fin + 1);
        }
    }

    QByteArray pendiente_;
    int ultimoId_ = 0;
};

} // namespace zv::simulador
