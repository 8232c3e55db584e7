// A small tokenizer and three rewrites over its tokens.
#include "store/sqlite/SqlDialect.h"

#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"

#include <optional>
#include <vector>

namespace zv {

namespace {

enum class Tipo { Espacio, Literal, Palabra, NombreCitado, Numero, Parametro, Signo };

struct Token {
    Tipo tipo;
    QString texto;
    QString detras; // what is written behind it besides
};

bool EsInicioPalabra(QChar c) {
    return c.isLetter() || c == u'_';
}
bool EsPalabra(QChar c) {
    return c.isLetterOrNumber() || c == u'_' || c == u'$';
}

// End of a quoted piece that starts at i; a doubled mark stands for itself.
qsizetype FinCita(const QString& sql, qsizetype i, QChar fin) {
    for (qsizetype j = i + 1; j < sql.size(); ++j) {
        if (sql.at(j) == fin) {
            if (fin != u']' && j + 1 < sql.size() && sql.at(j + 1) == fin) {
                ++j;
            } else {
                return j + 1;
            }
        }
    }
    return sql.size();
}

qsizetype FinNumero(const QString& sql, qsizetype i) {
    while (i < sql.size()) {
        const QChar c = sql.at(i);
        const bool exponente = (c == u'e' || c == u'E') && i + 1 < sql.size() &&
                               (sql.at(i + 1) == u'+' || sql.at(i + 1) == u'-');
        if (exponente) {
            i += 2;
        } else if (c.isLetterOrNumber() || c == u'.') {
            ++i;
        } else {
            break;
        }
    }
    return i;
}

qsizetype FinComentario(const QString& sql, qsizetype i) {
    const bool linea = sql.at(i) == u'-';
    const qsizetype fin = linea ? sql.indexOf(u'\n', i) : sql.indexOf(u"*/"_s, i + 2);
    return fin < 0 ? sql.size() : fin + (linea ? 1 : 2);
}

std::vector<Token> Trocear(const QString& sql) {
    std::vector<Token> piezas;
    for (qsizetype i = 0; i < sql.size();) {
        const QChar c = sql.at(i);
        const QChar siguiente = i + 1 < sql.size() ? sql.at(i + 1) : QChar();
        qsizetype fin = i + 1;
        Tipo tipo = Tipo::Signo;
        if (c.isSpace()) {
            tipo = Tipo::Espacio;
            while (fin < sql.size() && sql.at(fin).isSpace()) {
                ++fin;
            }
        } else if ((c == u'-' && siguiente == u'-') || (c == u'/' && siguiente == u'*')) {
            tipo = Tipo::Espacio;
            fin = FinComentario(sql, i);
        } else if (c == u'\'') {
            tipo = Tipo::Literal;
            fin = FinCita(sql, i, c);
        } else if (c == u'"' || c == u'`' || c == u'[') {
            tipo = Tipo::NombreCitado;
            fin = FinCita(sql, i, c == u'[' ? QChar(u']') : c);
        } else if (c.isDigit()) {
            tipo = Tipo::Numero;
            fin = FinNumero(sql, i);
        } else if (c == u'?' || (c == u'@' && EsInicioPalabra(siguiente))) {
            tipo = Tipo::Parametro;
            while (c == u'@' && fin < sql.size() && EsPalabra(sql.at(fin))) {
                ++fin;
            }
        } else if (EsInicioPalabra(c)) {
            tipo = Tipo::Palabra;
            while (fin < sql.size() && EsPalabra(sql.at(fin))) {
                ++fin;
            }
        }
        piezas.push_back({tipo, sql.mid(i, fin - i), {}});
        i = fin;
    }
    return piezas;
}

constexpr std::size_t kNinguna = static_cast<std::size_t>(-1);

// The pieces that mean something, seen through their positions.
class Adaptador {
  public:
    explicit Adaptador(const QString& sql) : piezas_(Trocear(sql)) {}

    void Parametros() {
        for (Token& pieza : piezas_) {
            if (pieza.tipo == Tipo::Parametro) {
                pieza.texto = u"?"_s;
            }
        }
    }

    void Limites() {
        for (std::size_t i = 0; i < piezas_.size(); ++i) {
            if (!EsPalabraClave(i, "SELECT")) {
                continue;
            }
            std::size_t top = Siguiente(i);
            if (EsPalabraClave(top, "DISTINCT") || EsPalabraClave(top, "ALL")) {
                top = Siguiente(top);
            }
            const std::size_t numero = EsPalabraClave(top, "TOP") ? Siguiente(top) : kNinguna;
            if (numero == kNinguna || !EsEntero(numero) ||
                EsPalabraClave(Siguiente(numero), "PERCENT")) {
                continue;
            }
            const std::optional<std::size_t> fin = FinSelect(numero);
            if (fin) {
                piezas_[Anterior(*fin)].detras += u" LIMIT "_s + piezas_[numero].texto;
                for (std::size_t j = top; j <= numero; ++j) {
                    piezas_[j].texto.clear();
                }
                if (numero + 1 < piezas_.size() && piezas_[numero + 1].tipo == Tipo::Espacio) {
                    piezas_[numero + 1].texto.clear();
                }
            }
        }
    }

    void Uniones(const std::function<QSet<QString>()>& columnasTexto) {
        std::optional<QSet<QString>> columnas;
        for (std::size_t i = 0; i < piezas_.size(); ++i) {
            if (!EsSigno(i, u'+') || !EsFinOperando(Anterior(i))) {
                continue;
            }
            if (!columnas) {
                columnas = columnasTexto();
            }
            i = Cadena(i, *columnas);
        }
    }

    QString Texto() const {
        QString texto;
        for (const Token& pieza : piezas_) {
            texto += pieza.texto + pieza.detras;
        }
        return texto;
    }

  private:
    std::size_t Siguiente(std::size_t i) const {
        for (std::size_t j = i + 1; i != kNinguna && j < piezas_.size(); ++j) {
            if (piezas_[j].tipo != Tipo::Espacio) {
                return j;
            }
        }
        return kNinguna;
    }
    // i may stand one beyond the last piece.
    std::size_t Anterior(std::size_t i) const {
        while (i != kNinguna && i > 0) {
            --i;
            if (piezas_[i].tipo != Tipo::Espacio && !piezas_[i].texto.isEmpty()) {
                return i;
            }
        }
        return kNinguna;
    }
    bool EsPalabraClave(std::size_t i, const char* palabra) const {
        return i != kNinguna && piezas_[i].tipo == Tipo::Palabra &&
               piezas_[i].texto.compare(QLatin1String(palabra), Qt::CaseInsensitive) == 0;
    }
    bool EsSigno(std::size_t i, char16_t signo) const {
        return i != kNinguna && piezas_[i].tipo == Tipo::Signo && piezas_[i].texto.size() == 1 &&
               piezas_[i].texto.at(0) == QChar(signo);
    }
    bool EsEntero(std::size_t i) const {
        bool entero = false;
        piezas_[i].texto.toUInt(&entero);
        return entero && piezas_[i].tipo == Tipo::Numero;
    }
    bool EsNombre(std::size_t i) const {
        return i != kNinguna &&
               (piezas_[i].tipo == Tipo::Palabra || piezas_[i].tipo == Tipo::NombreCitado) &&
               !EsReservada(i);
    }
    // Words that end an expression; a name follows or precedes none of them as an operand.
    bool EsReservada(std::size_t i) const {
        if (piezas_[i].tipo != Tipo::Palabra) {
            return false;
        }
        for (const char* palabra :
             {"SELECT", "DISTINCT", "ALL",     "FROM", "WHERE", "AND",   "OR",     "NOT",  "IN",
              "LIKE",   "IS",       "BETWEEN", "BY",   "GROUP", "ORDER", "HAVING", "AS",   "ON",
              "SET",    "VALUES",   "CASE",    "WHEN", "THEN",  "ELSE",  "UNION",  "LIMIT"}) {
            if (EsPalabraClave(i, palabra)) {
                return true;
            }
        }
        return false;
    }
    bool EsFinOperando(std::size_t i) const {
        return i != kNinguna &&
               (EsNombre(i) || EsSigno(i, u')') || piezas_[i].tipo == Tipo::Literal ||
                piezas_[i].tipo == Tipo::Numero || piezas_[i].tipo == Tipo::Parametro);
    }
    bool EsAritmetica(std::size_t i) const {
        return EsSigno(i, u'+') || EsSigno(i, u'-') || EsSigno(i, u'*') || EsSigno(i, u'/') ||
               EsSigno(i, u'%') || EsSigno(i, u'^') || EsSigno(i, u'&') || EsSigno(i, u'\\') ||
               EsPalabraClave(i, "MOD");
    }

    // Where the select that holds piece i ends: the closing mark around it, a semicolon or the end
    // of the text. Nothing when a UNION follows, where SQLite takes no LIMIT.
    std::optional<std::size_t> FinSelect(std::size_t i) const {
        int hondura = 0;
        for (++i; i < piezas_.size(); ++i) {
            if (EsSigno(i, u'(')) {
                ++hondura;
            } else if (EsSigno(i, u')')) {
                if (--hondura < 0) {
                    return i;
                }
            } else if (hondura == 0) {
                if (EsSigno(i, u';')) {
                    return i;
                }
                if (EsPalabraClave(i, "UNION")) {
                    return std::nullopt;
                }
            }
        }
        return piezas_.size();
    }

    // The other mark of a pair of parentheses, from either side.
    std::size_t Pareja(std::size_t i) const {
        const bool adelante = EsSigno(i, u'(');
        int hondura = 0;
        for (; i != kNinguna; i = adelante ? Siguiente(i) : Anterior(i)) {
            hondura += EsSigno(i, u'(') ? 1 : EsSigno(i, u')') ? -1 : 0;
            if (hondura == 0) {
                return i;
            }
        }
        return kNinguna;
    }

    // First piece of the operand that ends at fin.
    std::size_t InicioOperando(std::size_t fin) const {
        std::size_t inicio = fin;
        if (EsSigno(fin, u')')) {
            inicio = Pareja(fin);
            const std::size_t funcion = Anterior(inicio);
            return EsNombre(funcion) ? funcion : inicio;
        }
        while (EsNombre(inicio) && EsSigno(Anterior(inicio), u'.')) {
            inicio = Anterior(Anterior(inicio));
        }
        return inicio;
    }
    // Last piece of the operand that starts at inicio.
    std::size_t FinOperando(std::size_t inicio) const {
        std::size_t fin = inicio;
        while (EsNombre(fin) && EsSigno(Siguiente(fin), u'.')) {
            fin = Siguiente(Siguiente(fin));
        }
        if (EsNombre(fin) && EsSigno(Siguiente(fin), u'(')) {
            fin = Siguiente(fin);
        }
        return EsSigno(fin, u'(') ? Pareja(fin) : fin;
    }
    bool EsColumnaTexto(std::size_t i, const QSet<QString>& columnas) const {
        if (!EsNombre(i)) {
            return false;
        }
        const QString& texto = piezas_[i].texto;
        const QString nombre =
            piezas_[i].tipo == Tipo::NombreCitado ? texto.mid(1, texto.size() - 2) : texto;
        return columnas.contains(nombre.toLower());
    }
    // A function's result is of an unknown kind; a group is text when it joins text.
    bool EsTexto(std::size_t inicio, std::size_t fin, const QSet<QString>& columnas) const {
        if (EsSigno(fin, u')')) {
            if (!EsSigno(inicio, u'(')) {
                return false;
            }
            for (std::size_t i = Siguiente(inicio); i != kNinguna && i < fin; i = Siguiente(i)) {
                if (piezas_[i].tipo == Tipo::Literal || EsColumnaTexto(i, columnas)) {
                    return true;
                }
            }
            return false;
        }
        return piezas_[fin].tipo == Tipo::Literal || EsColumnaTexto(fin, columnas);
    }

    // Rewrites the chain of operands joined by + whose first + stands at mas, if it joins text.
    // Answers the last + of the chain.
    std::size_t Cadena(std::size_t mas, const QSet<QString>& columnas) {
        const std::size_t finPrimero = Anterior(mas);
        const std::size_t inicio = InicioOperando(finPrimero);
        if (inicio == kNinguna) {
            return mas;
        }
        bool texto = EsTexto(inicio, finPrimero, columnas);
        bool numero = piezas_[finPrimero].tipo == Tipo::Numero;
        std::vector<std::size_t> signos;
        std::size_t fin = finPrimero;
        for (std::size_t signo = mas; EsSigno(signo, u'+'); signo = Siguiente(fin)) {
            const std::size_t operando = Siguiente(signo);
            if (operando == kNinguna || !(EsFinOperando(operando) || EsSigno(operando, u'('))) {
                break;
            }
            const std::size_t ultimo = FinOperando(operando);
            if (ultimo == kNinguna) {
                break;
            }
            texto = texto || EsTexto(operando, ultimo, columnas);
            numero = numero || piezas_[ultimo].tipo == Tipo::Numero;
            signos.push_back(signo);
            fin = ultimo;
        }
        if (texto && !signos.empty()) {
            if (numero || EsAritmetica(Anterior(inicio)) || EsAritmetica(Siguiente(fin))) {
                // The result would be another number, without a word.
                throw errores::TipoNoCoincide();
            }
            for (const std::size_t signo : signos) {
                piezas_[signo].texto = u"||"_s;
            }
            // Joined text would otherwise compare with regard to case.
            piezas_[fin].detras += u" COLLATE NOCASE"_s;
        }
        return signos.empty() ? mas : signos.back();
    }

    std::vector<Token> piezas_;
};

} // namespace

QString AdaptToSqlite(const QString& sql, const std::function<QSet<QString>()>& columnasTexto) {
    // Most statements need nothing.
    const bool union_ = sql.contains(u'+');
    const bool top = sql.contains(QLatin1String("TOP"), Qt::CaseInsensitive);
    const bool parametros = sql.contains(u'@');
    if (!union_ && !top && !parametros) {
        return sql;
    }
    Adaptador adaptador(sql);
    if (parametros) {
        adaptador.Parametros();
    }
    if (union_) {
        adaptador.Uniones(columnasTexto);
    }
    if (top) {
        adaptador.Limites();
    }
    return adaptador.Texto();
}

} // namespace zv
