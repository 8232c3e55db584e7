#include "barcode/CamposBalanza.h"

#include "barcode/Claves.h"
#include "config/Configuracio.h"
#include "platform/Conversions.h"
#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "ui/Dialogos.h"
#include "ui/Textos.h"

#include <algorithm>
#include <cmath>

namespace zv {

namespace {

constexpr int kLargo = 0;
constexpr int kTicketDesde = 1;
constexpr int kTicketHasta = 2;
constexpr int kImporteDesde = 3;
constexpr int kImporteHasta = 4;
constexpr int kDecimales = 5;
constexpr double kMayorByte = 255;

const QString kCero = u"0"_s;
// What a refused field goes back to. No other text fits a code of any length.
const QString kRecurso = kCero;

// In the order of the fields.
constexpr std::array<quint8 Configuracio::*, CamposBalanza::kCuantos> kAjustes = {
    &Configuracio::BCEAN,  &Configuracio::BCTINI, &Configuracio::BCTFIN,
    &Configuracio::BCIINI, &Configuracio::BCIFIN, &Configuracio::BCDEC};

} // namespace

CamposBalanza::CamposBalanza(FormatoRegional formato, std::function<int()> decimales,
                             Dialogos& dialogos, const Textos& textos)
    : formato_(std::move(formato)), decimales_(std::move(decimales)), dialogos_(dialogos),
      textos_(textos) {}

void CamposBalanza::CarregaConfig(Configuracio& cfg) {
    cfg_ = &cfg;
    for (int i = 0; i < kCuantos; ++i) {
        cargados_[i] = QString::number(cfg.*kAjustes[i]);
        campos_[i] = {cargados_[i], true};
    }
    check1_ = cfg.BCTPRE;
}

bool CamposBalanza::Cambiado() const {
    return !std::ranges::equal(campos_, cargados_, {}, &Campo::texto);
}

// As it will be stored, halves to even: two fields that differ by less than a character are not in
// order.
std::optional<double> CamposBalanza::Numero(int indice) const {
    const std::optional<double> numero = formato_.LeerNumero(campos_[indice].texto);
    return numero ? std::optional(std::nearbyint(*numero)) : std::nullopt;
}

int CamposBalanza::Entero(int indice) const {
    return static_cast<int>(std::clamp(Valor(indice), 0.0, kMayorByte));
}

LayoutCodigo CamposBalanza::Layout() const {
    return {Entero(kLargo),        check1_,
            Entero(kTicketDesde),  Entero(kTicketHasta),
            Entero(kImporteDesde), Entero(kImporteHasta),
            Entero(kDecimales)};
}

void CamposBalanza::ReiniciarSiguientes(int indice) {
    for (int i = indice + 1; i < kCuantos; ++i) {
        campos_[i].texto = kCero;
    }
}

bool CamposBalanza::SinTicket(int indice) const {
    return !check1_ && (indice == kTicketDesde || indice == kTicketHasta);
}

bool CamposBalanza::EsBueno(int indice) const {
    if (SinTicket(indice)) {
        return true;
    }
    const double v = Valor(indice);
    const bool cabe = v <= Valor(kLargo);
    switch (indice) {
    case kLargo:
        return v >= 0;
    case kTicketDesde:
        return v != 0 && cabe;
    case kTicketHasta:
        return Valor(kTicketDesde) <= v && cabe;
    case kImporteDesde:
        return Valor(kTicketHasta) < v && cabe;
    case kImporteHasta:
        return Valor(kImporteDesde) <= v && cabe;
    default:
        return v >= 0 && v <= decimales_();
    }
}

void CamposBalanza::Rechazar(int indice) {
    campos_[indice] = {kRecurso, false};
}

// False for a field that was refused.
bool CamposBalanza::Probar(int indice) {
    Campo& campo = campos_[indice];
    const std::optional<double> v = Numero(indice);
    if (!v) {
        Rechazar(indice);
        return false;
    }
    if (!EsBueno(indice)) {
        const int decimales = decimales_();
        if (indice == kDecimales && *v > decimales) {
            dialogos_.CajaSimple(textos_.Traduce(texto::kDecimalesInferior) + u' ' +
                                 QString::number(decimales));
        }
        Rechazar(indice);
        if (indice == kLargo) {
            campo.texto = kCero;
        }
        return false;
    }
    campo.bueno = true;
    if (SinTicket(indice)) {
        campo.texto = kCero;
    }
    return true;
}

// What a changed field makes of those behind it.
void CamposBalanza::AlSerBueno(int indice) {
    const bool reinicia = indice == kLargo          ? Valor(kLargo) == 0
                          : indice == kImporteDesde ? false
                                                    : indice < kDecimales;
    if (reinicia) {
        ReiniciarSiguientes(indice);
    }
}

int CamposBalanza::TBal_KeyDown(int indice, Tecla tecla) {
    if (!Probar(indice)) {
        return indice;
    }
    AlSerBueno(indice);
    if (tecla == Tecla::Arriba) {
        return std::max(indice - 1, 0);
    }
    return indice < kImporteHasta ? indice + 1 : indice;
}

void CamposBalanza::Check1_Click(bool marcado) {
    check1_ = marcado;
    cfg_->BCTPRE = marcado;
}

std::optional<int> CamposBalanza::Aceptar() {
    for (int i = 0; i < kCuantos; ++i) {
        if (!Probar(i)) {
            return i;
        }
        if (i == kLargo && Valor(kLargo) == 0) {
            // Codes are not read: there is nothing more to test.
            ReiniciarSiguientes(kLargo);
            break;
        }
    }
    return Copiar();
}

std::optional<int> CamposBalanza::Copiar() {
    std::array<quint8, kCuantos> bytes{};
    for (int i = 0; i < kCuantos; ++i) {
        try {
            bytes[i] = AByte(campos_[i].texto, formato_);
        } catch (const ErrorEjecucion&) {
            // More than a setting can hold: refused like any other, before one of them is changed.
            Rechazar(i);
            return i;
        }
    }
    for (int i = 0; i < kCuantos; ++i) {
        cfg_->*kAjustes[i] = bytes[i];
    }
    return std::nullopt;
}

} // namespace zv
