// The script of the dialogs: matching of what is asked against what waits.
#include "support/DialogosGuion.h"

#include "platform/StringLiterals.h"
#include "support/ImprimeQt.h"

#include <optional>

namespace zv::test {

DialogosGuion::~DialogosGuion() {
    for (const Paso& paso : guion_) {
        ADD_FAILURE() << "nobody asked for this dialog: " << Describe(paso);
    }
}

const char* DialogosGuion::Nombre(Kind kind) {
    switch (kind) {
    case Kind::Mensaje:
        return "Mensaje";
    case Kind::Texto:
        return "Texto";
    case Kind::Importe:
        return "Importe";
    case Kind::Impresion:
        return "Impresion";
    case Kind::Caja:
        return "Caja";
    }
    return "";
}

std::string DialogosGuion::Describe(const Paso& paso) {
    std::ostringstream salida;
    salida << Nombre(paso.kind) << " with a title that ";
    paso.titulo.DescribeTo(&salida);
    salida << " and a text that ";
    paso.texto.DescribeTo(&salida);
    if (paso.estilo) {
        salida << " in style " << *paso.estilo;
    }
    return salida.str();
}

void DialogosGuion::EsperaMensaje(TextoEsperado titulo, TextoEsperado texto, Respuesta respuesta,
                                  std::optional<EstiloMensaje> estilo, Accion mientras) {
    std::optional<int> numero;
    if (estilo) {
        numero = static_cast<int>(*estilo);
    }
    guion_.push_back({Kind::Mensaje,
                      std::move(titulo),
                      std::move(texto),
                      testing::_,
                      numero,
                      respuesta,
                      {},
                      {},
                      false,
                      false,
                      std::move(mientras)});
}

void DialogosGuion::EsperaTexto(TextoEsperado titulo, TextoEsperado texto, const QString& respuesta,
                                TextoEsperado porDefecto, Accion mientras) {
    guion_.push_back({Kind::Texto,
                      std::move(titulo),
                      std::move(texto),
                      std::move(porDefecto),
                      std::nullopt,
                      Respuesta::Ninguna,
                      respuesta,
                      {},
                      false,
                      false,
                      std::move(mientras)});
}

void DialogosGuion::EsperaImporte(TextoEsperado titulo, TextoEsperado prompt, Currency respuesta,
                                  bool cancelado, Accion mientras) {
    guion_.push_back({Kind::Importe,
                      std::move(titulo),
                      std::move(prompt),
                      testing::_,
                      std::nullopt,
                      Respuesta::Ninguna,
                      {},
                      respuesta,
                      cancelado,
                      false,
                      std::move(mientras)});
}

void DialogosGuion::EsperaSinImporte(TextoEsperado titulo, TextoEsperado prompt) {
    guion_.push_back({Kind::Importe,
                      std::move(titulo),
                      std::move(prompt),
                      testing::_,
                      1,
                      Respuesta::Ninguna,
                      {},
                      {},
                      true,
                      true,
                      {}});
}

void DialogosGuion::EsperaImpresion(Impresion respuesta, Accion mientras) {
    guion_.push_back({Kind::Impresion,
                      testing::_,
                      testing::_,
                      testing::_,
                      std::nullopt,
                      Respuesta::Ninguna,
                      {},
                      {},
                      false,
                      false,
                      std::move(mientras),
                      respuesta});
}

void DialogosGuion::EsperaCaja(TextoEsperado texto, Accion mientras) {
    guion_.push_back({Kind::Caja,
                      testing::_,
                      std::move(texto),
                      testing::_,
                      std::nullopt,
                      Respuesta::Ninguna,
                      {},
                      {},
                      false,
                      false,
                      std::move(mientras)});
}

std::optional<DialogosGuion::Paso> DialogosGuion::Siguiente(Kind kind, const QString& titulo,
                                                            const QString& texto, int estilo,
                                                            const QString& porDefecto) {
    const QString llamada =
        u"%1|%2|%3|%4"_s.arg(QLatin1String(Nombre(kind)), titulo, texto, QString::number(estilo));
    llamadas_ << llamada;
    if (guion_.empty()) {
        ADD_FAILURE() << "unexpected dialog: " << llamada.toStdString();
        return std::nullopt;
    }
    // A wrong question leaves the script as it is, so that each mistake is told once.
    const Paso& paso = guion_.front();
    if (paso.kind != kind || !paso.titulo.Matches(titulo) || !paso.texto.Matches(texto) ||
        !paso.porDefecto.Matches(porDefecto) || (paso.estilo && *paso.estilo != estilo)) {
        ADD_FAILURE() << "dialog " << llamada.toStdString() << "\nwhere the script has "
                      << Describe(paso);
        return std::nullopt;
    }
    Paso tomado = std::move(guion_.front());
    guion_.pop_front();
    if (tomado.mientras) {
        tomado.mientras();
    }
    return tomado;
}

Respuesta DialogosGuion::MostrarMensaje(const QString& titulo, const QString& texto,
                                        EstiloMensaje estilo) {
    const auto paso = Siguiente(Kind::Mensaje, titulo, texto, static_cast<int>(estilo), {});
    if (paso) {
        return paso->boton;
    }
    // What ends most loops of questions: the refusing button of the style.
    switch (estilo) {
    case EstiloMensaje::AceptarCancelar:
    case EstiloMensaje::ReintentarCancelar:
        return Respuesta::Cancelar;
    case EstiloMensaje::SiNoCancelar:
    case EstiloMensaje::SiNo:
        return Respuesta::No;
    default:
        return Respuesta::Aceptar;
    }
}

QString DialogosGuion::PedirTexto(const QString& titulo, const QString& texto,
                                  const QString& porDefecto) {
    const auto paso = Siguiente(Kind::Texto, titulo, texto, 0, porDefecto);
    return paso ? paso->respuesta : QString();
}

Currency DialogosGuion::PedirImporte(const QString& titulo, const QString& prompt,
                                     Currency porDefecto, bool* sinImporte, bool& cancelado) {
    ultimoImporte_ = porDefecto;
    ultimoSinImporte_ = sinImporte != nullptr;
    const auto paso = Siguiente(Kind::Importe, titulo, prompt, ultimoSinImporte_ ? 1 : 0, {});
    cancelado = paso ? paso->cancelado : true;
    if (sinImporte != nullptr) {
        *sinImporte = paso && paso->sinImporte;
    }
    return paso ? paso->importe : Currency();
}

Impresion DialogosGuion::ElegirImpresion() {
    const auto paso = Siguiente(Kind::Impresion, {}, {}, 0, {});
    return paso ? paso->impresion : Impresion::Nada;
}

void DialogosGuion::CajaSimple(const QString& texto) {
    Siguiente(Kind::Caja, {}, texto, 0, {});
}

} // namespace zv::test
