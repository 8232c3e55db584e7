// Reads the values of a copied row as the system's types, with the platform's own failures for
// values that do not fit.
#include "platform/ErrorEjecucion.h"
#include "store/DatabaseEngine.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zv {

namespace {

bool EsEntero(const QVariant& v) {
    switch (v.typeId()) {
    case QMetaType::LongLong:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Bool:
        return true;
    default:
        return false;
    }
}

bool EsDoble(const QVariant& v) {
    return v.typeId() == QMetaType::Double;
}

// Dates are days since 1899-12-30 in the number form; the platform holds years 100 to 9999.
constexpr double kDiaMinimo = -657434;
constexpr double kDiaLimite = 2958466;
constexpr qint64 kMsDia = 86400000;

QDateTime FechaDeNumero(double dias) {
    if (!(dias >= kDiaMinimo && dias < kDiaLimite)) {
        throw errores::Desbordamiento();
    }
    // The fraction counts forward from the day, also before 1899-12-30.
    const double dia = std::trunc(dias);
    const auto ms = static_cast<qint64>(std::llround(std::fabs(dias - dia) * kMsDia));
    const QDate fecha = QDate(1899, 12, 30).addDays(static_cast<qint64>(dia) + ms / kMsDia);
    return {fecha, QTime::fromMSecsSinceStartOfDay(static_cast<int>(ms % kMsDia))};
}

// Digits of a fixed field; -1 when one is none.
int Numero(QStringView texto, qsizetype desde, qsizetype cuantos) {
    int valor = 0;
    for (qsizetype i = desde; i < desde + cuantos; ++i) {
        const char16_t c = texto[i].unicode();
        if (c < u'0' || c > u'9') {
            return -1;
        }
        valor = valor * 10 + (c - u'0');
    }
    return valor;
}

constexpr qsizetype kLargoFecha = 40; // no date that anybody writes is longer

bool SonCifras(QStringView texto) {
    return std::all_of(texto.begin(), texto.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

// "YYYY-MM-DD", with " HH:MM", " HH:MM:SS" or a fraction of a second; T may stand for the blank.
QDateTime FechaFija(QStringView texto) {
    const qsizetype n = texto.size();
    const bool fraccion = n > 20 && texto[19] == u'.' && SonCifras(texto.sliced(20));
    if ((n != 10 && n != 16 && n != 19 && !fraccion) || texto[4] != u'-' || texto[7] != u'-') {
        return {};
    }
    const QDate fecha(Numero(texto, 0, 4), Numero(texto, 5, 2), Numero(texto, 8, 2));
    QTime hora(0, 0);
    if (n > 10) {
        if ((texto[10] != u' ' && texto[10] != u'T') || texto[13] != u':' ||
            (n > 16 && texto[16] != u':')) {
            return {};
        }
        const qsizetype cifras = fraccion ? qMin<qsizetype>(n - 20, 3) : 0;
        int ms = cifras > 0 ? Numero(texto, 20, cifras) : 0;
        for (qsizetype i = cifras; i > 0 && i < 3; ++i) {
            ms *= 10;
        }
        hora = QTime(Numero(texto, 11, 2), Numero(texto, 14, 2), n > 16 ? Numero(texto, 17, 2) : 0,
                     ms);
    }
    if (!fecha.isValid() || !hora.isValid()) {
        return {};
    }
    const QDateTime local(fecha, hora);
    // An hour that the clock skipped in spring is no local time; the next one stands for it.
    return local.isValid() ? local : QDateTime(fecha, hora.addSecs(3600));
}

} // namespace

Row::Row(std::shared_ptr<const QStringList> columnas, std::vector<QVariant> valores)
    : columnas_(std::move(columnas)), valores_(std::move(valores)) {}

int Row::Indice(const QString& columna) const {
    for (qsizetype i = 0; i < columnas_->size(); ++i) {
        if (columnas_->at(i).compare(columna, Qt::CaseInsensitive) == 0) {
            return static_cast<int>(i);
        }
    }
    throw errores::FueraDeIntervalo();
}

const QVariant& Row::Valor(int indice) const {
    if (indice < 0 || static_cast<std::size_t>(indice) >= valores_.size()) {
        throw errores::FueraDeIntervalo();
    }
    return valores_[static_cast<std::size_t>(indice)];
}

void Row::Cambiar(int indice, QVariant valor) {
    if (indice < 0 || static_cast<std::size_t>(indice) >= valores_.size()) {
        throw errores::FueraDeIntervalo();
    }
    valores_[static_cast<std::size_t>(indice)] = std::move(valor);
}

qint32 Row::LeerLong(int indice, qint32 siNulo) const {
    const QVariant& v = Valor(indice);
    if (v.isNull()) {
        return siNulo;
    }
    constexpr qint64 kMinimo = std::numeric_limits<qint32>::min();
    constexpr qint64 kMaximo = std::numeric_limits<qint32>::max();
    if (EsEntero(v)) {
        const qint64 entero = v.toLongLong();
        if (entero < kMinimo || entero > kMaximo) {
            throw errores::Desbordamiento();
        }
        return static_cast<qint32>(entero);
    }
    if (EsDoble(v)) {
        const double entero = std::nearbyint(v.toDouble());
        if (!(entero >= static_cast<double>(kMinimo) && entero <= static_cast<double>(kMaximo))) {
            throw errores::Desbordamiento();
        }
        return static_cast<qint32>(entero);
    }
    throw errores::TipoNoCoincide();
}

Currency Row::LeerCurrency(int indice, Currency siNulo) const {
    const QVariant& v = Valor(indice);
    if (v.isNull()) {
        return siNulo;
    }
    if (EsEntero(v)) {
        return Currency::DeEntero(v.toLongLong());
    }
    if (EsDoble(v)) {
        return Currency::DeDoble(v.toDouble());
    }
    throw errores::TipoNoCoincide();
}

QString Row::LeerTexto(int indice) const {
    const QVariant& v = Valor(indice);
    if (v.isNull()) {
        return {};
    }
    if (v.typeId() == QMetaType::QString) {
        return v.toString();
    }
    if (EsEntero(v)) {
        return QString::number(v.toLongLong());
    }
    if (EsDoble(v)) {
        return QString::number(v.toDouble(), 'g', 15);
    }
    throw errores::TipoNoCoincide();
}

bool Row::LeerBooleano(int indice) const {
    const QVariant& v = Valor(indice);
    if (v.isNull()) {
        return false;
    }
    if (EsEntero(v)) {
        return v.toLongLong() != 0;
    }
    if (EsDoble(v)) {
        return v.toDouble() != 0;
    }
    throw errores::TipoNoCoincide();
}

QDateTime Row::LeerFecha(int indice) const {
    const QVariant& v = Valor(indice);
    if (v.isNull()) {
        return {};
    }
    if (EsEntero(v)) {
        return FechaDeNumero(static_cast<double>(v.toLongLong()));
    }
    if (EsDoble(v)) {
        return FechaDeNumero(v.toDouble());
    }
    if (v.typeId() != QMetaType::QString) {
        throw errores::TipoNoCoincide();
    }
    const QString texto = v.toString();
    if (texto.size() > kLargoFecha) {
        throw errores::TipoNoCoincide();
    }
    QDateTime fecha = FechaFija(texto);
    if (!fecha.isValid()) {
        // Time zones come this way.
        fecha = QDateTime::fromString(texto, Qt::ISODateWithMs);
        if (!fecha.isValid()) {
            throw errores::TipoNoCoincide();
        }
        fecha = fecha.toLocalTime();
    }
    return fecha;
}

QVariant ValorBD(Currency valor) {
    // Whole amounts stay whole numbers in the file, so that every reader sees them exactly.
    if (valor.Diezmilesimas() % Currency::kEscala == 0) {
        return QVariant(static_cast<qlonglong>(valor.Diezmilesimas() / Currency::kEscala));
    }
    return QVariant(valor.ADoble());
}

} // namespace zv
