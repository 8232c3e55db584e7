// Regional numbers. The form of an amount is taken once from samples that QLocale writes;
// formatting and reading then work on characters alone.
#include "platform/FormatoRegional.h"

#include "platform/ErrorEjecucion.h"
#include "platform/Recorte.h"

#include <QLocale>
#include <QVarLengthArray>

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace zv {
namespace {

constexpr qsizetype kLargoMaximo = 512; // no number that anybody types is longer

bool EsBlanco(QChar c) {
    switch (c.unicode()) {
    case u' ':
    case u'\t':
    case 0x00A0: // no-break
    case 0x2007: // figure
    case 0x2009: // thin
    case 0x202F: // narrow no-break
        return true;
    default:
        return false;
    }
}

// Marks of writing direction, which say nothing.
bool EsDireccion(QChar c) {
    return c == QChar(0x200E) || c == QChar(0x200F) || c == QChar(0x061C);
}

// The system's amounts hold plain blanks only.
QString ConBlancosSimples(QString texto) {
    std::replace_if(texto.begin(), texto.end(), EsBlanco, QChar(u' '));
    return texto;
}

QStringView Recortado(QStringView texto) {
    return Recortar(texto, [](QChar c) { return EsBlanco(c) || EsDireccion(c); });
}

bool EsMenos(QChar c) {
    return c == u'-' || c == QChar(0x2212);
}

QLocale RegionPorNombre(const QString& nombre) {
    const QLocale region(nombre);
    return region.language() == QLocale::C ? QLocale(QLocale::Spanish, QLocale::Spain) : region;
}

} // namespace

// A number taken apart: value = digits * 10^(exponente - decimales).
struct FormatoRegional::Partes {
    QVarLengthArray<char, 64> cifras;      // '0' to '9', whole part and decimals
    qsizetype enteras = 0;                 // how many of them stand before the decimal mark
    QVarLengthArray<qsizetype, 16> marcas; // whole digits before each thousands mark
    int exponente = 0;
    bool hayExponente = false;
    bool negativo = false;
};

FormatoRegional FormatoRegional::DelSistema() {
    const QLocale sistema = QLocale::system();
    if (sistema.language() == QLocale::C) {
        return FormatoRegional(QLocale(QLocale::Spanish, QLocale::Spain));
    }
    // By its name, so that the desktop's own overrides of single formats stay out.
    return FormatoRegional(QLocale(sistema.language(), sistema.script(), sistema.territory()));
}

FormatoRegional::FormatoRegional(const QString& region)
    : FormatoRegional(RegionPorNombre(region)) {}

FormatoRegional::FormatoRegional(const QLocale& region) {
    const QString uno = region.toCurrencyString(1.0);
    positivo_ = MarcoDe(uno);
    negativo_ = MarcoDe(region.toCurrencyString(-1.0));
    decimales_ = static_cast<int>(
                     std::count_if(uno.begin(), uno.end(), [](QChar c) { return c.isDigit(); })) -
                 1;
    cero_ = region.zeroDigit().isEmpty() ? QChar(u'0') : region.zeroDigit().front();
    marcaDecimal_ = region.decimalPoint().isEmpty() ? QChar(u'.') : region.decimalPoint().front();

    // The thousands marks of a long sample tell the mark and the groups.
    const QString largo = ConBlancosSimples(region.toString(qint64{123456789012}));
    QList<qsizetype> cifrasDetras;
    qsizetype cifras = 0;
    for (auto c = largo.crbegin(); c != largo.crend(); ++c) {
        if (c->isDigit()) {
            ++cifras;
        } else if (cifras > 0 && cifras < 12) {
            marcaMiles_ = *c;
            cifrasDetras << cifras;
        }
    }
    if (!cifrasDetras.isEmpty()) {
        grupoFinal_ = static_cast<int>(cifrasDetras.first());
        grupo_ = static_cast<int>(cifrasDetras.size() > 1 ? cifrasDetras[1] - cifrasDetras[0]
                                                          : cifrasDetras[0]);
    }
    simbolo_ = Recortado(ConBlancosSimples(region.currencySymbol())).toString();
    TomarFecha(region);
}

void FormatoRegional::TomarFecha(const QLocale& region) {
    for (const QChar c : region.dateFormat(QLocale::ShortFormat)) {
        if (c == u'd' || c == u'M' || c == u'y') {
            if (!ordenFecha_.contains(c)) {
                ordenFecha_ += c;
            }
        } else if (ordenFecha_.size() == 1) {
            marcaFecha_ = c;
        }
    }
    if (region.timeFormat(QLocale::ShortFormat).contains(u'A', Qt::CaseInsensitive)) {
        manana_ = ConBlancosSimples(region.amText());
        tarde_ = ConBlancosSimples(region.pmText());
    }
}

QString FormatoRegional::FechaGeneral(const QDateTime& fecha) const {
    static const QDate kDiaCero(1899, 12, 30);
    if (!fecha.isValid()) {
        return {};
    }
    QString texto;
    const auto poner = [&texto](int valor, int cifras) {
        const QString numero = QString::number(valor);
        texto += QString(std::max<qsizetype>(0, cifras - numero.size()), u'0') + numero;
    };
    const QDate dia = fecha.date();
    const QTime hora = fecha.time();
    if (dia != kDiaCero) {
        for (const QChar c : ordenFecha_) {
            if (!texto.isEmpty()) {
                texto += marcaFecha_;
            }
            c == u'y' ? poner(dia.year(), 4) : poner(c == u'M' ? dia.month() : dia.day(), 2);
        }
    }
    const bool medianoche = hora.hour() == 0 && hora.minute() == 0 && hora.second() == 0;
    if (medianoche && dia != kDiaCero) {
        return texto;
    }
    if (!texto.isEmpty()) {
        texto += u' ';
    }
    const bool doce = !manana_.isEmpty();
    poner(doce ? (hora.hour() + 11) % 12 + 1 : hora.hour(), 1);
    for (const int parte : {hora.minute(), hora.second()}) {
        texto += u':';
        poner(parte, 2);
    }
    return doce ? texto + u' ' + (hora.hour() < 12 ? manana_ : tarde_) : texto;
}

FormatoRegional::Marco FormatoRegional::MarcoDe(const QString& importe) {
    const auto esCifra = [](QChar c) { return c.isDigit(); };
    const auto primera = std::find_if(importe.begin(), importe.end(), esCifra);
    const auto detras = std::find_if(importe.rbegin(), importe.rend(), esCifra).base();
    return {ConBlancosSimples(importe.first(primera - importe.begin())),
            ConBlancosSimples(importe.sliced(detras - importe.begin()))};
}

QString FormatoRegional::FormatoCurrency(Currency valor) const {
    const qint64 diezmilesimas = valor.Diezmilesimas();
    quint64 magnitud = diezmilesimas < 0 ? 0 - static_cast<quint64>(diezmilesimas)
                                         : static_cast<quint64>(diezmilesimas);
    constexpr int kDecimalesCurrency = 4;
    for (int i = kDecimalesCurrency; i > decimales_; --i) {
        // Halves away from zero; only the last digit that goes decides.
        magnitud = i == decimales_ + 1 ? (magnitud + 5) / 10 : magnitud / 10;
    }
    const Marco& marco = diezmilesimas < 0 && magnitud != 0 ? negativo_ : positivo_;

    // From the last digit to the first.
    QVarLengthArray<QChar, 48> alReves;
    const auto cifra = [&] {
        alReves.append(QChar(static_cast<char16_t>(cero_.unicode() + magnitud % 10)));
        magnitud /= 10;
    };
    for (int i = 0; i < decimales_; ++i) {
        cifra();
    }
    if (decimales_ > 0) {
        alReves.append(marcaDecimal_);
    }
    int enGrupo = grupoFinal_;
    do {
        if (enGrupo == 0) {
            if (!marcaMiles_.isNull()) {
                alReves.append(marcaMiles_);
            }
            enGrupo = grupo_;
        }
        cifra();
        --enGrupo;
    } while (magnitud != 0);

    QString texto;
    texto.reserve(marco.delante.size() + alReves.size() + marco.detras.size());
    texto += marco.delante;
    std::for_each(alReves.crbegin(), alReves.crend(), [&](QChar c) { texto += c; });
    texto += marco.detras;
    return texto;
}

QString FormatoRegional::FormatoCurrency(double valor) const {
    return FormatoCurrency(Currency::DeDoble(valor));
}

int FormatoRegional::Cifra(QChar c) const {
    const int ascii = c.unicode() - u'0';
    if (ascii >= 0 && ascii <= 9) {
        return ascii;
    }
    const int propia = c.unicode() - cero_.unicode();
    return propia >= 0 && propia <= 9 ? propia : -1;
}

bool FormatoRegional::EsMarcaMiles(QChar c) const {
    if (marcaMiles_ == u' ') {
        return EsBlanco(c);
    }
    // The typographic apostrophe is typed as the plain one.
    return !marcaMiles_.isNull() &&
           (c == marcaMiles_ || (marcaMiles_ == QChar(0x2019) && c == u'\''));
}

bool FormatoRegional::BienAgrupado(const Partes& partes) const {
    if (partes.marcas.isEmpty()) {
        return true;
    }
    qsizetype final = partes.enteras;
    int grupo = grupoFinal_;
    for (auto marca = partes.marcas.crbegin(); marca != partes.marcas.crend(); ++marca) {
        if (final - *marca != grupo) {
            return false;
        }
        final = *marca;
        grupo = grupo_;
    }
    // A leading zero before a mark, "0.125", was meant as a decimal mark.
    return final >= 1 && final <= grupo_ && partes.cifras[0] != '0';
}

// Digits, marks and exponent at the front of texto, which loses them.
bool FormatoRegional::AnalizarCifras(QStringView& texto, Partes& partes) const {
    qsizetype i = 0;
    bool decimales = false;
    const qsizetype largo = texto.size();
    for (; i < largo; ++i) {
        const QChar c = texto[i];
        const int cifra = Cifra(c);
        if (cifra >= 0) {
            partes.cifras.append(static_cast<char>('0' + cifra));
            partes.enteras += decimales ? 0 : 1;
        } else if (!decimales && c == marcaDecimal_) {
            decimales = true;
        } else if (!decimales && EsMarcaMiles(c) && !partes.cifras.isEmpty() && i + 1 < largo &&
                   Cifra(texto[i + 1]) >= 0) {
            partes.marcas.append(partes.enteras);
        } else {
            break;
        }
    }
    if (partes.cifras.isEmpty() || !BienAgrupado(partes)) {
        return false;
    }
    // An exponent is one only with digits behind; else the letter may begin the symbol.
    const auto esLetra = [](QChar c) { return c == u'e' || c == u'E' || c == u'd' || c == u'D'; };
    if (i < largo && esLetra(texto[i])) {
        qsizetype j = i + 1;
        const bool menos = j < largo && EsMenos(texto[j]);
        j += menos || (j < largo && texto[j] == u'+') ? 1 : 0;
        const qsizetype inicio = j;
        constexpr int kTope = 100000; // far beyond any type, far from overflow
        int exponente = 0;
        for (; j < largo && Cifra(texto[j]) >= 0; ++j) {
            exponente = std::min(exponente * 10 + Cifra(texto[j]), kTope);
        }
        if (j > inicio) {
            partes.hayExponente = true;
            partes.exponente = menos ? -exponente : exponente;
            i = j;
        }
    }
    texto = texto.sliced(i);
    return true;
}

bool FormatoRegional::Analizar(QStringView texto, Partes& partes) const {
    if (texto.size() > kLargoMaximo) {
        return false;
    }
    bool signo = false;
    bool simbolo = false;
    bool abierto = false;
    bool cifras = false;
    bool cerrado = false;
    while (!(texto = Recortado(texto)).isEmpty()) {
        const QChar c = texto.front();
        if (!simbolo && !simbolo_.isEmpty() && texto.startsWith(simbolo_)) {
            simbolo = true;
            texto = texto.sliced(simbolo_.size());
            continue;
        }
        if (!cifras && (Cifra(c) >= 0 || c == marcaDecimal_)) {
            if (!AnalizarCifras(texto, partes)) {
                return false;
            }
            cifras = true;
            continue;
        }
        if ((EsMenos(c) || c == u'+') && !signo) {
            signo = true;
            partes.negativo = c != u'+';
        } else if (c == u'(' && !abierto && !signo && !cifras) {
            abierto = signo = true;
            partes.negativo = true;
        } else if (c == u')' && abierto && !cerrado && cifras) {
            cerrado = true;
        } else {
            return false;
        }
        texto = texto.sliced(1);
    }
    return cifras && abierto == cerrado;
}

std::optional<double> FormatoRegional::LeerNumero(const QString& texto) const {
    Partes partes;
    if (!Analizar(texto, partes)) {
        return std::nullopt;
    }
    // The plain form that the correctly rounding conversion reads: digits, "e", power of ten.
    QVarLengthArray<char, 96> llano(partes.cifras.cbegin(), partes.cifras.cend());
    llano.append('e');
    std::array<char, 16> exponente{};
    const qsizetype potencia = partes.exponente - (partes.cifras.size() - partes.enteras);
    const auto escrito =
        std::to_chars(exponente.data(), exponente.data() + exponente.size(), potencia);
    llano.append(exponente.data(), escrito.ptr - exponente.data());

    double valor = 0;
    const auto leido = std::from_chars(llano.cbegin(), llano.cend(), valor);
    if (leido.ec == std::errc::result_out_of_range) {
        // Too near to zero reads as zero; too big is no number.
        const auto* const significativa = std::find_if(partes.cifras.cbegin(), partes.cifras.cend(),
                                                       [](char c) { return c != '0'; });
        const qsizetype orden =
            partes.enteras + partes.exponente - (significativa - partes.cifras.cbegin());
        if (orden > 0) {
            return std::nullopt;
        }
        valor = 0;
    } else if (leido.ec != std::errc()) {
        return std::nullopt;
    }
    return partes.negativo ? -valor : valor;
}

Currency FormatoRegional::LeerCurrency(const QString& texto) const {
    Partes partes;
    if (!Analizar(texto, partes)) {
        throw errores::TipoNoCoincide();
    }
    // In whole numbers all the way: a double holds 53 bits only. The first digits, up to the fourth
    // decimal, are the value; the rest rounds it.
    constexpr int kDecimales = 4;
    const qsizetype quedan = partes.enteras + partes.exponente + kDecimales;
    quint64 magnitud = 0;
    const auto sumaCifra = [&magnitud](int cifra) {
        if (__builtin_mul_overflow(magnitud, quint64{10}, &magnitud) ||
            __builtin_add_overflow(magnitud, static_cast<quint64>(cifra), &magnitud)) {
            throw errores::Desbordamiento();
        }
    };
    const qsizetype cifras = partes.cifras.size();
    for (qsizetype i = 0; i < std::min(quedan, cifras); ++i) {
        sumaCifra(partes.cifras[i] - '0');
    }
    for (qsizetype i = cifras; i < quedan && magnitud != 0; ++i) {
        sumaCifra(0);
    }
    if (quedan >= 0 && quedan < cifras) {
        const char primera = partes.cifras[quedan];
        const bool resto = std::any_of(partes.cifras.cbegin() + quedan + 1, partes.cifras.cend(),
                                       [](char c) { return c != '0'; });
        if (primera > '5' || (primera == '5' && (resto || magnitud % 2 != 0))) {
            if (__builtin_add_overflow(magnitud, quint64{1}, &magnitud)) {
                throw errores::Desbordamiento();
            }
        }
    }
    constexpr auto kMaximo = static_cast<quint64>(std::numeric_limits<qint64>::max());
    if (magnitud > kMaximo + (partes.negativo ? 1 : 0)) {
        throw errores::Desbordamiento();
    }
    return Currency::DeDiezmilesimas(
        static_cast<qint64>(partes.negativo ? 0 - magnitud : magnitud));
}

} // namespace zv
