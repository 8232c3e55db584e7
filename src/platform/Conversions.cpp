#include "platform/Conversions.h"

#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"

#include <QRegularExpression>
#include <QStringList>

#include <cmath>
#include <limits>
#include <optional>

namespace zv {
namespace {

template <typename Entero>
Entero Convertir(const QString& texto, const FormatoRegional& formato) {
    // The default rounding mode of nearbyint is halves to even.
    const double valor = std::nearbyint(ADoble(texto, formato));
    if (valor < std::numeric_limits<Entero>::min() || valor > std::numeric_limits<Entero>::max()) {
        throw errores::Desbordamiento();
    }
    return static_cast<Entero>(valor);
}

const QDate kDiaCero(1899, 12, 30);

// A number of days, the time in its fraction.
std::optional<QDateTime> DesdeDias(double dias) {
    constexpr double kPrimero = -657434; // the year 100
    constexpr double kUltimo = 2958466;  // behind the year 9999
    if (!(dias >= kPrimero && dias < kUltimo)) {
        return std::nullopt;
    }
    constexpr double kSegundos = 24 * 60 * 60;
    const double entero = std::trunc(dias);
    const auto segundos = std::llround(std::abs(dias - entero) * kSegundos);
    return QDateTime(kDiaCero.addDays(static_cast<qint64>(entero)), QTime(0, 0)).addSecs(segundos);
}

int DeCuatroCifras(const QString& ano) {
    const int valor = ano.toInt();
    if (ano.size() > 2) {
        return valor;
    }
    constexpr int kUltimoDelSiglo = 29;
    return valor + (valor <= kUltimoDelSiglo ? 2000 : 1900);
}

// Day and month that make no date are taken the other way round.
QDate DiaValido(int ano, int mes, int dia) {
    const QDate fecha(ano, mes, dia);
    return fecha.isValid() ? fecha : QDate(ano, dia, mes);
}

QDate LeerDia(const QStringList& partes, const QString& orden, QDate hoy) {
    QString sitios = orden;
    if (partes.size() == 2) {
        sitios.remove(u'y');
    } else if (partes.front().size() > 2) {
        sitios = u"yMd"_s;
    }
    const auto parte = [&](QChar cual) { return partes[sitios.indexOf(cual)]; };
    const int ano = partes.size() == 2 ? hoy.year() : DeCuatroCifras(parte(u'y'));
    const QDate dia = DiaValido(ano, parte(u'M').toInt(), parte(u'd').toInt());
    constexpr int kPrimerAno = 100;
    return dia.year() >= kPrimerAno ? dia : QDate();
}

// Hour, minute and second; half is the half of the day that stands behind them.
QTime LeerHora(const QRegularExpressionMatch& hallado, const FormatoRegional& formato) {
    const QString mitad = hallado.captured(u"mitad"_s);
    int hora = hallado.captured(u"h"_s).toInt();
    if (!mitad.isEmpty()) {
        const auto es = [&mitad](const QString& propia, const char* comun) {
            return mitad.compare(propia, Qt::CaseInsensitive) == 0 ||
                   mitad.compare(QLatin1String(comun), Qt::CaseInsensitive) == 0;
        };
        const bool tarde = es(formato.Tarde(), "pm");
        if ((!tarde && !es(formato.Manana(), "am")) || hora < 1 || hora > 12) {
            return {};
        }
        hora = hora % 12 + (tarde ? 12 : 0);
    }
    return {hora, hallado.captured(u"m"_s).toInt(), hallado.captured(u"s"_s).toInt()};
}

std::optional<QDateTime> LeerFecha(const QString& texto, const FormatoRegional& formato,
                                   QDate hoy) {
    if (const auto dias = formato.LeerNumero(texto)) {
        return DesdeDias(*dias);
    }
    static const QRegularExpression kForma(
        u"^(?<dia>\\d{1,4}[^\\d\\s:]\\d{1,2}(?:[^\\d\\s:]\\d{1,4})?)?(?:(?:^|\\s+)"
        "(?<h>\\d{1,2}):(?<m>\\d{1,2})(?::(?<s>\\d{1,2}))?"
        "(?:\\s*(?<mitad>[^\\d\\s].*))?)?$"_s);
    const auto hallado = kForma.match(texto.trimmed());
    const QString dia = hallado.captured(u"dia"_s);
    const bool hayHora = hallado.hasCaptured(u"h"_s);
    if (!hallado.hasMatch() || (dia.isEmpty() && !hayHora)) {
        return std::nullopt;
    }
    QDate fecha = kDiaCero;
    if (!dia.isEmpty()) {
        QString parejo = dia;
        for (const QChar marca : {QChar(u'-'), formato.MarcaFecha()}) {
            parejo.replace(marca, QChar(u'/'));
        }
        const QStringList partes = parejo.split(u'/');
        const qsizetype marcas = dia.count(QRegularExpression(u"\\D"_s));
        if (partes.size() != marcas + 1) {
            return std::nullopt; // parted by something else
        }
        fecha = LeerDia(partes, formato.OrdenFecha(), hoy);
    }
    const QTime hora = hayHora ? LeerHora(hallado, formato) : QTime(0, 0);
    if (!fecha.isValid() || !hora.isValid()) {
        return std::nullopt;
    }
    return QDateTime(fecha, hora);
}

} // namespace

QDateTime AFecha(const QString& texto, const FormatoRegional& formato, QDate hoy) {
    const auto fecha = LeerFecha(texto, formato, hoy);
    if (!fecha) {
        throw errores::TipoNoCoincide();
    }
    return *fecha;
}

double ADoble(const QString& texto, const FormatoRegional& formato) {
    const auto numero = formato.LeerNumero(texto);
    if (!numero) {
        throw errores::TipoNoCoincide();
    }
    return *numero;
}

quint8 AByte(const QString& texto, const FormatoRegional& formato) {
    return Convertir<quint8>(texto, formato);
}

qint16 AEntero16(const QString& texto, const FormatoRegional& formato) {
    return Convertir<qint16>(texto, formato);
}

qint32 AEntero32(const QString& texto, const FormatoRegional& formato) {
    return Convertir<qint32>(texto, formato);
}

} // namespace zv
