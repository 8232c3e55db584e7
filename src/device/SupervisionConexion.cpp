#include "device/SupervisionConexion.h"

#include "device/Claves.h"
#include "platform/ErrorEjecucion.h"
#include "platform/RegistryNames.h"
#include "platform/StringLiterals.h"

#include <QScopeGuard>

namespace zv {

namespace {

using registry_name::kSaldoExit;
using registry_name::kSaldoInicial;

const QString kFinLinea = u"\r\n"_s;

} // namespace

SupervisionConexion::SupervisionConexion(DeviceClient& cliente, RegistryTree& registry, Log& log,
                                         Dialogos& dialogos, const Textos& textos,
                                         const Importes& importes, std::function<QString()> ip)
    : cliente_(cliente), registry_(registry), log_(log), dialogos_(dialogos), textos_(textos),
      importes_(importes), ip_(std::move(ip)), diario_(log),
      saldos_(
          cliente, [this] { return conectado_; }, dialogos, textos) {}

void SupervisionConexion::LeerSaldoInicial() {
    saldoInicial_ =
        importes_.Formato().LeerCurrency(registry_.LeerValor(kSaldoInicial, u"0"_s)).AEntero32();
}

void SupervisionConexion::RenovarSaldoInicial(Currency saldo) {
    saldoInicial_ = saldo.AEntero32();
    registry_.GuardarValor(kSaldoInicial, saldo.ATexto());
}

void SupervisionConexion::LeerSaldos() {
    const FormatoRegional& formato = importes_.Formato();
    LeerSaldoInicial();
    ultimoSaldo_ = formato.LeerCurrency(registry_.LeerValor(kSaldoExit, u"0"_s));
}

bool SupervisionConexion::AbrirSesion() {
    if (vista_ != nullptr) {
        vista_->MostrarEspera(true);
    }
    const auto fin = qScopeGuard([this] {
        if (vista_ != nullptr) {
            vista_->MostrarEspera(false);
        }
    });
    cliente_.Address(ip_());
    cliente_.SessionFlag(true);
    bool resultado = false;
    cliente_.Connect(resultado);
    return resultado;
}

void SupervisionConexion::Conectar() {
    if (vista_ != nullptr) {
        vista_->HabilitarConectar(false);
    }
    const bool resultado = AbrirSesion();
    const QString etiqueta = u"CONECTARZORV"_s;
    if (resultado) {
        diario_.Connect(etiqueta, u"CONNECT_OK"_s);
    } else {
        diario_.Connect(etiqueta, u"CONNECT_ERRORZV"_s + QString::number(cliente_.ErrorCode()));
    }
    conectado_ = resultado;
    if (conectado_) {
        ComprobarSaldos();
    } else {
        MostrarFalloConexion();
    }
    if (vista_ != nullptr) {
        vista_->HabilitarConectar(true);
        vista_->ActualizarBotonesMonitor(conectado_);
    }
}

void SupervisionConexion::ComprobarSaldos() {
    const FormatoRegional& formato = importes_.Formato();
    ultimoSaldo_ = formato.LeerCurrency(registry_.LeerValor(kSaldoExit, u"0"_s));
    const Currency total = saldos_.SaldoPorTipo(u"GETSALDOINICIOZV"_s, TipoSaldo::Todo);
    if (ultimoSaldo_ != total) {
        const QString ultimo = importes_.FormatoImporte(ultimoSaldo_);
        const QString actual = importes_.FormatoImporte(total);
        dialogos_.MostrarMensaje(textos_.Traduce(texto::kInicializacion),
                                 textos_.Traduce(texto::kSaldoHaVariado) + kFinLinea +
                                     textos_.Traduce(texto::kUltimoSaldo) + ultimo + kFinLinea +
                                     textos_.Traduce(texto::kSaldoActual) + actual);
        log_.LogLinea(u">>> Último Saldo Registrado: "_s + ultimo + u" -- Saldo Actual: "_s +
                      actual);
    }
    GuardarSaldoExit();
    const Currency sinPoner(-1);
    if (formato.LeerCurrency(registry_.LeerValor(kSaldoInicial, u"-1"_s)) == sinPoner) {
        registry_.GuardarValor(kSaldoInicial, total.ATexto());
    }
    saldoInicial_ =
        formato.LeerCurrency(registry_.LeerValor(kSaldoInicial, total.ATexto())).AEntero32();
}

void SupervisionConexion::MostrarFalloConexion() {
    const qint16 codigo = cliente_.ErrorCode();
    const QString numero = QString::number(codigo);
    const QString mensaje = cliente_.ErrorMessage();
    dialogos_.MostrarMensaje(textos_.Traduce(texto::kErrorDeZorvex),
                             textos_.Traduce(texto::kProblemaComunicacion) + kFinLinea +
                                 textos_.Traduce(texto::kConsulteConSuTecnico) + kFinLinea +
                                 numero + u": "_s + mensaje);
    if (codigo != 0) {
        log_.LogLinea(u">>> Error Zorvex: "_s + numero + u" - "_s + mensaje);
    } else {
        log_.LogLinea(u">>> Error de comunicación con Zorvex"_s);
    }
}

void SupervisionConexion::Cortar() {
    GuardarSaldoExit();
    cliente_.Disconnect();
    diario_.Connect(u"DESCONECTARZORV"_s, u"DISCONNECT_OK"_s);
    conectado_ = false;
}

void SupervisionConexion::Desconectar() {
    if (vista_ != nullptr && vista_->Agrupando()) {
        dialogos_.MostrarMensaje(textos_.Traduce(texto::kConflictoOperacion),
                                 textos_.Traduce(texto::kProblemaAgrupacion));
        return;
    }
    Cortar();
    if (vista_ != nullptr) {
        vista_->ActualizarBotonesMonitor(false);
    }
}

bool SupervisionConexion::IntentarReconnectar() {
    Cortar();
    if (vista_ != nullptr) {
        vista_->ActualizarBotonesMonitor(false);
    }
    Conectar();
    if (!conectado_ && vista_ != nullptr) {
        vista_->ActualizarBotonesMonitor(false);
    }
    return conectado_;
}

void SupervisionConexion::GuardarSaldoExit() {
    if (!conectado_) {
        return;
    }
    saldoExit_ = saldos_.SaldoPorTipo(u"GUARDASALDOEXIT"_s, TipoSaldo::Todo);
    registry_.GuardarValor(kSaldoExit, saldoExit_.ATexto());
}

void SupervisionConexion::MostrarNivel() {
    try {
        if (!conectado_) {
            MostrarLamparas(false, false, true);
            return;
        }
        QString noms;
        QString levels;
        bool bien = false;
        cliente_.GetLevels(4, noms, levels, bien);
        QString resultado = u"OK"_s;
        if (bien) {
            // The text as a whole is looked at; states are single digits.
            const bool critico = levels.contains(u'2');
            const bool alerta = !critico && levels.contains(u'1');
            diario_.GetLevels(u"MOSTRARNIVEL"_s, resultado, 4, noms, levels);
            MostrarLamparas(!critico && !alerta, alerta, critico);
            return;
        }
        const qint16 codigo = cliente_.ErrorCode();
        resultado = codigo != 0 ? u"ERRORZV_"_s + QString::number(codigo) + u" - "_s +
                                      cliente_.ErrorMessage()
                                : u"Cancelado"_s;
        diario_.GetLevels(u"MOSTRARNIVEL"_s, resultado, 4, noms, levels);
    } catch (const ErrorEjecucion& error) {
        dialogos_.MostrarMensaje(textos_.Traduce(texto::kErrorDeZorvex),
                                 u"Error nº "_s + QString::number(error.Numero()) + u" - "_s +
                                     error.Descripcion());
    }
}

void SupervisionConexion::MostrarLamparas(bool ok, bool alerta, bool critico) {
    if (vista_ != nullptr) {
        vista_->MostrarLamparas(ok, alerta, critico);
    }
}

} // namespace zv
