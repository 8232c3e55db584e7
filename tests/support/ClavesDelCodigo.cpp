// Reading of calls in sources: no parser of the language, but strings, brackets and comments.
#include "support/ClavesDelCodigo.h"

#include "platform/StringLiterals.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

namespace zv::test {

namespace {

// A function that looks a text up by the key in one of its arguments.
struct Funcion {
    QString nombre;
    std::optional<QString> seccion; // else in the argument before the key
    int clave = 0;                  // place of the key among the arguments
    QString donde; // file or folder in which the name means this; empty for everywhere
    bool operator==(const Funcion&) const = default;
};

// The look-up itself and the captions of screens: their keys are no texts of theirs.
const std::array kSinClaves{QLatin1String("ui/Textos.cpp"),
                            QLatin1String("ui/screens/Traduccion.cpp")};

QString SinComentarios(const QString& fuente) {
    static const QRegularExpression comentario(uR"re(("(?:[^"\\\n]|\\.)*")|//[^\n]*|/\*.*?\*/)re"_s,
                                               QRegularExpression::DotMatchesEverythingOption);
    return QString(fuente).replace(comentario, u"\\1"_s);
}

// The arguments of the call whose bracket opens at desde, as they stand.
QStringList Argumentos(const QString& fuente, qsizetype desde) {
    QStringList argumentos{QString()};
    int nivel = 0;
    bool texto = false;
    for (qsizetype i = desde; i < fuente.size(); ++i) {
        const QChar c = fuente[i];
        if (texto) {
            texto = c != QLatin1Char('"') || fuente[i - 1] == QLatin1Char('\\');
        } else if (c == QLatin1Char('"')) {
            texto = true;
        } else if (c == QLatin1Char('(') || c == QLatin1Char('{')) {
            if (++nivel == 1) {
                continue;
            }
        } else if (c == QLatin1Char(')') || c == QLatin1Char('}')) {
            if (--nivel == 0) {
                break;
            }
        } else if (c == QLatin1Char(',') && nivel == 1) {
            argumentos << QString();
            continue;
        }
        argumentos.last() += c;
    }
    for (QString& argumento : argumentos) {
        argumento = argumento.trimmed();
    }
    return argumentos;
}

// A literal, and what stands behind it in the argument.
struct Literal {
    QString texto;
    QString resto;
};

std::optional<Literal> LeerLiteral(const QString& argumento) {
    static const QRegularExpression literal(
        uR"re(^(?:QStringLiteral\(\s*|QLatin1String\(\s*|u)?"((?:[^"\\]|\\.)*)"(?:_s)?\s*\)?(.*)$)re"_s);
    const auto hallado = literal.match(argumento);
    if (!hallado.hasMatch()) {
        return std::nullopt;
    }
    return Literal{hallado.captured(1), hallado.captured(2).trimmed()};
}

QString Carpeta(const QString& ruta) {
    return ruta.section(QLatin1Char('/'), 0, -2);
}

// The function or lambda whose parameter is the key of a look-up at a place of the source: the
// short forms that files make for themselves.
std::optional<Funcion> FormaCorta(const QString& ruta, const QString& fuente, qsizetype sitio,
                                  const QString& seccion, const QString& clave) {
    static const QRegularExpression nombre(uR"re((\w+)\)*$)re"_s);
    const auto parametro = nombre.match(clave);
    if (!parametro.hasMatch()) {
        return std::nullopt;
    }
    const QRegularExpression declarado(
        uR"re((?:(\w+)\s*=\s*\[[^\]]*\]\s*|((?:\w+::)?\w+))\(([^(){};]*\b(?:const char\w*\s*\*|const QString\s*&|QString)\s*%1\b))re"_s
            .arg(parametro.captured(1)));
    std::optional<Funcion> hallada;
    for (auto i = declarado.globalMatch(fuente); i.hasNext();) {
        const auto m = i.next();
        if (m.capturedStart() > sitio) {
            break;
        }
        const bool lambda = !m.captured(1).isEmpty();
        hallada = Funcion{lambda ? m.captured(1) : m.captured(2).section(u"::"_s, -1), seccion,
                          static_cast<int>(m.captured(3).count(QLatin1Char(','))),
                          lambda ? ruta : Carpeta(ruta)};
    }
    return hallada;
}

class Lector {
  public:
    explicit Lector(const QString& carpeta) {
        QDirIterator ficheros(carpeta, {u"*.cpp"_s, u"*.h"_s}, QDir::Files,
                              QDirIterator::Subdirectories);
        while (ficheros.hasNext()) {
            QFile fichero(ficheros.next());
            const QString ruta = QDir(carpeta).relativeFilePath(fichero.fileName());
            if (!fichero.open(QIODevice::ReadOnly)) {
                todo.ilegibles << ruta;
            } else if (std::find(kSinClaves.begin(), kSinClaves.end(), ruta) == kSinClaves.end()) {
                fuentes_[ruta] = SinComentarios(QString::fromUtf8(fichero.readAll()));
            }
        }
        // Short forms that are found are read in their turn.
        for (std::size_t i = 0; i < funciones_.size(); ++i) {
            const Funcion funcion = funciones_[i];
            for (const auto& [ruta, fuente] : fuentes_) {
                if (funcion.donde.isEmpty() || ruta == funcion.donde ||
                    Carpeta(ruta) == funcion.donde) {
                    LeerLlamadas(ruta, fuente, funcion);
                }
            }
        }
    }

    ClavesDelCodigo todo;

  private:
    void LeerLlamadas(const QString& ruta, const QString& fuente, const Funcion& funcion) {
        const QRegularExpression llamada(uR"(\b%1\()"_s.arg(funcion.nombre));
        for (auto i = llamada.globalMatch(fuente); i.hasNext();) {
            const auto hallada = i.next();
            const QStringList argumentos = Argumentos(fuente, hallada.capturedEnd() - 1);
            if (argumentos.first().startsWith(QLatin1String("const ")) ||
                argumentos.size() <= funcion.clave ||
                QStringView(argumentos[funcion.clave]).contains(QLatin1String("texto::")) ||
                argumentos.first() == QLatin1String("clave")) {
                continue; // a declaration, another function of that name, an entry of an array
            }
            const auto enLlamada = LeerLiteral(argumentos.first());
            const auto seccion = funcion.seccion ? *funcion.seccion
                                 : enLlamada     ? enLlamada->texto
                                                 : QString();
            const QString clave = argumentos[funcion.clave];
            const auto literal = LeerLiteral(clave);
            if (!seccion.isEmpty() && literal) {
                (literal->resto.isEmpty() ? todo.claves : todo.comienzos)
                    .emplace(std::pair(seccion, literal->texto), ruta);
                continue;
            }
            const auto forma = FormaCorta(ruta, fuente, hallada.capturedStart(), seccion, clave);
            if (seccion.isEmpty() || !forma) {
                todo.ilegibles << ruta + u": "_s + funcion.nombre + QLatin1Char('(') +
                                      argumentos.join(u", "_s);
            } else if (std::find(funciones_.begin(), funciones_.end(), *forma) ==
                       funciones_.end()) {
                funciones_.push_back(*forma);
            }
        }
    }

    std::map<QString, QString> fuentes_;
    std::vector<Funcion> funciones_{{u"Traduce"_s, u"COMMON"_s, 0, {}},
                                    {u"TextoIdioma"_s, std::nullopt, 1, {}},
                                    {u"TextoForm"_s, std::nullopt, 1, {}}};
};

} // namespace

ClavesDelCodigo ClavesDelCodigo::Leer(const QString& carpeta) {
    return Lector(carpeta).todo;
}

} // namespace zv::test
