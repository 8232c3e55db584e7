// Whatever a point of sale may send over the fast link, one receive event after the other, on a
// real database. Input: a byte that parts what follows, a byte for the region, then messages, and
// between them what others do meanwhile (Mostrador::Paso). A model that splits bytes, not text,
// tells what every message must hold, what is answered, and which rows stand afterwards.
#include "fastlink/LecturaMissatge.h"
#include "fastlink/RespuestaFast.h"
#include "fuzz/Fuzz.h"
#include "platform/CodePage.h"
#include "platform/StringLiterals.h"
#include "store/ConexionBD.h"
#include "store/Esquema.h"
#include "store/sqlite/SqliteEngine.h"
#include "support/FixedClock.h"
#include "support/LogMemoria.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <array>
#include <cmath>
#include <limits>

namespace zv::fuzz {
namespace {

constexpr qsizetype kTexto = 50;
constexpr int kFalloPedido = 7777; // a number that no engine has

// ---- the model

struct Venta {
    QString id1;
    QString id2;
    qint32 importe = 0;
    qint32 idcaja = 0;
    QString terminal;
    QString vendedor;
    QString formapago;
    bool ajena = false; // another program's: nothing but id1

    bool operator==(const Venta&) const = default;
};
bool LlevaNul(const QString& texto) {
    return texto.contains(QChar(u'\0'));
}
bool LlevaNul(const Venta& venta) {
    return LlevaNul(venta.id1) || LlevaNul(venta.id2) || LlevaNul(venta.terminal) ||
           LlevaNul(venta.vendedor) || LlevaNul(venta.formapago);
}

struct Registrada {
    QString id1;
    QString estado;
};
struct Libros {
    std::vector<Venta> cola;
    std::vector<Registrada> procesados;
};

// As the engine compares: letters of ASCII without regard to case. No row holds a NUL.
bool MismoId(const QString& uno, const QString& otro) {
    const QByteArray a = uno.toUtf8();
    const QByteArray b = otro.toUtf8();
    if (a.size() != b.size()) {
        return false;
    }
    const auto menor = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    for (qsizetype i = 0; i < a.size(); ++i) {
        if (menor(a[i]) != menor(b[i])) {
            return false;
        }
    }
    return true;
}

struct Esperado {
    QByteArray comanda;
    Venta venta;
    QString importe; // the fields that are numbers, as text
    QString caja;
    bool conImporte = false;
    bool conCaja = false;
};

std::optional<Esperado> Partir(const QByteArray& bytes) {
    const QByteArrayList campos = bytes.split('|');
    if (campos.size() == 1) {
        return std::nullopt;
    }
    const auto texto = [&](qsizetype i) { return DeCodePage(campos.value(i).left(kTexto)); };
    Esperado e;
    e.comanda = campos[0];
    e.venta.id1 = texto(1);
    e.venta.id2 = texto(3);
    e.venta.terminal = texto(5);
    e.venta.vendedor = texto(6);
    e.venta.formapago = texto(7);
    e.conImporte = campos.size() > 2;
    e.conCaja = campos.size() > 4;
    e.importe = DeCodePage(campos.value(2));
    e.caja = DeCodePage(campos.value(4));
    return e;
}

// A plain number of at most 14 digits and 4 decimals, rounded halves to even, in whole numbers all
// the way; nothing for any other field, also when it is a number.
std::optional<qint64> Llano(const QString& campo, QChar marcaDecimal) {
    constexpr qint64 kEscala = 10000;
    const bool menos = campo.startsWith(u'-');
    const QStringList partes = campo.mid(menos ? 1 : 0).split(marcaDecimal);
    const QString decimales = partes.value(1);
    const QString cifras = partes[0] + decimales.leftJustified(4, u'0');
    if (partes[0].isEmpty() || partes[0].size() > 14 || decimales.size() > 4 ||
        (partes.size() == 2 && decimales.isEmpty()) || partes.size() > 2) {
        return std::nullopt;
    }
    qint64 valor = 0;
    for (const QChar c : cifras) {
        if (c < u'0' || c > u'9') {
            return std::nullopt;
        }
        valor = valor * 10 + (c.unicode() - u'0');
    }
    const qint64 resto = valor % kEscala;
    qint64 entero = valor / kEscala;
    entero += resto > kEscala / 2 || (resto == kEscala / 2 && entero % 2 == 1) ? 1 : 0;
    return menos ? -entero : entero;
}

// valor: what a field was read as; nothing when it was refused.
void MirarNumero(const QString& campo, std::optional<qint32> valor,
                 const FormatoRegional& formato) {
    constexpr double kMinimo = std::numeric_limits<qint32>::min();
    constexpr double kMaximo = std::numeric_limits<qint32>::max();
    const std::optional<double> numero = formato.LeerNumero(campo);
    if (const auto llano = Llano(campo, formato.MarcaDecimal())) {
        const bool cabe = *llano >= std::numeric_limits<qint32>::min() &&
                          *llano <= std::numeric_limits<qint32>::max();
        Exige(valor.has_value() == cabe, "a plain number fits into 32 bits or is refused");
        Exige(!valor || *valor == *llano, "a plain number is read as it stands");
    } else if (valor) {
        // Amounts are rounded to four decimals first.
        Exige(numero && std::abs(*numero - *valor) <= 0.50006, "a number is the nearest one");
    } else {
        Exige(!numero || *numero >= kMaximo + 0.4999 || *numero <= kMinimo - 0.4999,
              "only what is no number or too big is refused");
    }
}

// ---- the receiver

const FormatoRegional& Formato(char cual) {
    static const std::array<FormatoRegional, 6> formatos = {
        FormatoRegional(u"es_ES"_s), FormatoRegional(u"en_US"_s), FormatoRegional(u"de_CH"_s),
        FormatoRegional(u"fr_FR"_s), FormatoRegional(u"hi_IN"_s), FormatoRegional(u"pt_PT"_s)};
    return formatos[static_cast<std::uint8_t>(cual) % formatos.size()];
}

// One database for all inputs, in memory by the script; each input leaves it empty.
struct Almacen {
    Almacen() {
        DialogosMudos dialogos;
        test::LogMemoria log;
        const Textos textos(carpeta.path());
        SqliteEngine catalogo;
        CrearBaseDatos(catalogo, carpeta.path(), log, dialogos, textos);
        const QString cadena = CadenaConexion(u"MDB"_s, {}, RutaBaseDatos(carpeta.path()), {}, {});
        motor.Abrir(cadena);
        ajeno.Abrir(cadena);
    }

    QTemporaryDir carpeta;
    // Nobody waits for a lock.
    SqliteEngine motor{{std::chrono::milliseconds(0)}};
    SqliteEngine ajeno{{std::chrono::milliseconds(0)}};
};

class Mostrador {
  public:
    Mostrador(Almacen& almacen, const FormatoRegional& formato)
        : motor_(almacen.motor), ajeno_(almacen.ajeno), formato_(formato) {
        NuevasDades();
        motor_.PonerGancho([this](const Statement& s) {
            if (contestando_ && faltan_ > 0 && --faltan_ == 0) {
                fallo_ = s.kind;
                throw ErrorEjecucion(kFalloPedido, u"fallo pedido"_s);
            }
        });
    }
    ~Mostrador() {
        motor_.PonerGancho({});
        if (motor_.Nivel() > 0) {
            motor_.Deshacer();
        }
        if (ajeno_.Nivel() > 0) {
            ajeno_.Deshacer();
        }
        datos_.reset();
        motor_.Ejecutar(u"DELETE FROM cola"_s);
        motor_.Ejecutar(u"DELETE FROM procesados"_s);
    }
    Mostrador(const Mostrador&) = delete;
    Mostrador& operator=(const Mostrador&) = delete;

    // A message, or by its first byte: "+ID1" another program queues a sale; "#STATE" the oldest
    // sale is filed; "%STATE" the same, and it stays; "&" another program takes the write lock or
    // gives it back; "(" ")" "!" begin, commit and roll back a transaction of the monitor's own;
    // "@" the data service is made anew; "~" and a byte: that statement from here on fails.
    void Paso(const QByteArray& bytes) {
        const QString resto = DeCodePage(bytes.mid(1));
        const bool libre = motor_.Nivel() == 0 && ajeno_.Nivel() == 0;
        switch (bytes.isEmpty() ? '\0' : bytes.front()) {
        case '+':
            if (libre && !LlevaNul(resto)) {
                PonerAjena(resto.left(kTexto));
            }
            break;
        case '#':
        case '%':
            if (libre && !libros_.cola.empty() && !LlevaNul(resto)) {
                Archivar(resto.left(20), bytes.front() == '#');
            }
            break;
        case '&':
            if (ajeno_.Nivel() > 0) {
                ajeno_.Deshacer();
            } else if (libre) {
                ajeno_.Comenzar();
                ajeno_.Ejecutar(u"UPDATE cola SET idcaja=9 WHERE idZV<0"_s);
            }
            break;
        case '(':
            if (motor_.Nivel() == 0) {
                motor_.Comenzar();
                antes_ = libros_;
            }
            break;
        case ')':
            if (motor_.Nivel() > 0) {
                motor_.Confirmar();
            }
            break;
        case '!':
            if (motor_.Nivel() > 0) {
                motor_.Deshacer();
                libros_ = antes_;
            }
            break;
        case '@':
            NuevasDades();
            break;
        case '~':
            faltan_ = bytes.size() > 1 ? static_cast<std::uint8_t>(bytes[1]) % 8 : 0;
            break;
        default:
            Llegada(bytes);
            break;
        }
        MirarLibros();
    }

  private:
    void NuevasDades() {
        datos_ = std::make_unique<dades>(motor_, reloj_);
        datos_->Inicialitza();
        atascada_ = false;
    }
    void PonerAjena(const QString& id1) {
        ajeno_.Ejecutar(u"INSERT INTO cola (id1) VALUES (?)"_s, {id1});
        Venta venta;
        venta.id1 = id1;
        venta.ajena = true;
        libros_.cola.push_back(venta);
    }
    void Archivar(const QString& estado, bool fuera) {
        const QString id1 = libros_.cola.front().id1;
        ajeno_.Ejecutar(u"INSERT INTO procesados (id1,estado) VALUES (?,?)"_s, {id1, estado});
        libros_.procesados.push_back({id1, estado});
        if (fuera) {
            ajeno_.Ejecutar(u"DELETE FROM cola WHERE idZV=(SELECT min(idZV) FROM cola)"_s);
            libros_.cola.erase(libros_.cola.begin());
        }
    }

    void Llegada(const QByteArray& bytes) {
        const QString texto = DeCodePage(bytes);
        Exige(texto.size() == bytes.size() && ACodePage(texto) == bytes,
              "every byte is one character and comes back");
        const std::optional<Missatge> m = LeerMissatge(texto, formato_);
        std::optional<Esperado> e = Partir(bytes);
        Exige(m.has_value() == e.has_value(), "a message has a bar");
        if (!m) {
            return;
        }
        MirarMensaje(*m, *e);
        Contestar(*m, *e);
    }

    void MirarMensaje(const Missatge& m, Esperado& e) {
        Exige(m.IdxSocket == 0 && m.Comanda == DeCodePage(e.comanda),
              "the command is the first field, as received");
        Exige(m.ID1 == e.venta.id1 && m.ID2 == e.venta.id2 && m.Terminal == e.venta.terminal &&
                  m.Vendedor == e.venta.vendedor && m.Formapago == e.venta.formapago,
              "texts are their fields, cut at 50");
        Exige(!m.ImporteError || m.Importe.EsCero(), "an amount in error is 0");
        const int fuera = Numero([&] { e.venta.importe = m.Importe.AEntero32(); });
        Exige(fuera == 0 && m.Importe == Currency(e.venta.importe), "an amount has 32 bits");
        if (e.conImporte) {
            MirarNumero(e.importe, m.ImporteError ? std::nullopt : std::optional(e.venta.importe),
                        formato_);
        } else {
            Exige(!m.ImporteError && m.Importe.EsCero(), "no amount is 0");
        }
        e.venta.idcaja = m.IDcaja;
        if (e.conCaja && m.IDcaja == 0) {
            // Refused, or really 0.
            const std::optional<double> caja = formato_.LeerNumero(e.caja);
            constexpr double kMaximo = std::numeric_limits<qint32>::max();
            Exige(!caja || std::abs(*caja) <= 0.5 || std::abs(*caja) > kMaximo,
                  "a till that is a number is no 0");
        } else if (e.conCaja) {
            MirarNumero(e.caja, m.IDcaja, formato_);
        } else {
            Exige(m.IDcaja == 0, "no till is 0");
        }
    }

    // "NOT FOUND", "PENDING" or a record's state.
    QString Estado(const QString& id1) const {
        QString estado = u"NOT FOUND"_s;
        for (const Registrada& r : libros_.procesados) {
            estado = MismoId(r.id1, id1) ? r.estado : estado;
        }
        const bool enCola = std::any_of(libros_.cola.begin(), libros_.cola.end(),
                                        [&](const Venta& v) { return MismoId(v.id1, id1); });
        return enCola && estado != u"OK"_s ? u"PENDING"_s : estado;
    }

    // What must be answered when no statement fails; a charge that is added joins the model.
    QString Prevista(const Missatge& m, const Esperado& e) {
        const QString estado = Estado(e.venta.id1);
        const bool conocida = estado != u"NOT FOUND"_s;
        if (e.comanda == "C" || e.comanda == "c") {
            if (m.ImporteError) {
                return u"NOK|Amount too big"_s;
            }
            if (e.venta.id1.isEmpty()) {
                return u"NOK|Invalid ID"_s;
            }
            if (conocida) {
                return u"NOK|Already exists"_s;
            }
            if (LlevaNul(e.venta)) {
                return u"NOK|Failed"_s;
            }
            if (atascada_ || ajeno_.Nivel() > 0) {
                atascada_ = true;
                return u"NOK|Failed"_s;
            }
            libros_.cola.push_back(e.venta);
            return u"OK|Added"_s;
        }
        if (e.comanda == "S" || e.comanda == "s") {
            return e.venta.id1.isEmpty() || (!conocida && e.comanda == "S") ? u"NOK|Not found"_s
                                                                            : u"OK|"_s + estado;
        }
        return u"NOK|Unknown command"_s;
    }

    void Contestar(const Missatge& m, const Esperado& e) {
        const Libros previos = libros_;
        const bool atascadaAntes = atascada_;
        const QString prevista = Prevista(m, e);
        QString respuesta;
        fallo_.reset();
        contestando_ = true;
        const int numero = Numero([&] { respuesta = ContestarMissatge(*datos_, m); });
        contestando_ = false;
        if (!fallo_) {
            Exige(numero == 0, "no failure without a cause");
            Exige(respuesta == prevista, "the answer is the one that the books tell");
            Exige(DeCodePage(ACodePage(respuesta)) == respuesta, "an answer reaches the client");
            return;
        }
        // Either a look-up, and the caller is told, or the insertion, and the client is.
        libros_ = previos;
        atascada_ = atascadaAntes || *fallo_ == Statement::Kind::Escritura ||
                    *fallo_ == Statement::Kind::Comenzar;
        Exige(numero == kFalloPedido || (numero == 0 && respuesta == u"NOK|Failed"_s &&
                                         (e.comanda == "C" || e.comanda == "c")),
              "a statement that fails is told");
    }

    void MirarLibros() {
        const std::vector<Row> filas =
            motor_.Consultar(u"SELECT id1,id2,importe,idcaja,terminal,vendedor,formapago,fecha,"
                             "creditoError,manual,idZV FROM cola ORDER BY idZV"_s);
        Exige(filas.size() == libros_.cola.size(), "the queue has the rows that were added");
        for (std::size_t i = 0; i < filas.size(); ++i) {
            const Row& f = filas[i];
            const Venta& v = libros_.cola[i];
            const Venta leida{f.LeerTexto(0), f.LeerTexto(1), f.LeerCurrency(2).AEntero32(),
                              f.LeerLong(3),  f.LeerTexto(4), f.LeerTexto(5),
                              f.LeerTexto(6), v.ajena};
            Exige(leida == v, "a row holds the fields as received");
            Exige(!f.LeerBooleano(9), "no row is manual");
            for (int c = 1; c <= 8; ++c) {
                Exige(f.EsNulo(c) == v.ajena, "a row of the link has every field, others' stay");
            }
            Exige(v.ajena || (f.LeerFecha(7) == reloj_.Ahora() && f.LeerCurrency(8).EsCero()),
                  "a row has the present time and no credit");
        }
        Exige(motor_.Consultar(u"SELECT count(*) FROM procesados"_s).at(0).LeerLong(0) ==
                  static_cast<qint32>(libros_.procesados.size()),
              "records stay");
    }

    SqliteEngine& motor_;
    SqliteEngine& ajeno_;
    const FormatoRegional& formato_;
    test::FixedClock reloj_;
    std::unique_ptr<dades> datos_;
    Libros libros_;
    Libros antes_;          // as they stood when the transaction began
    bool atascada_ = false; // an insertion has failed: no more until the service is made anew
    bool contestando_ = false;
    int faltan_ = 0; // statements until one fails; 0 for never
    std::optional<Statement::Kind> fallo_;
};

void UnaEntrada(const QByteArray& bytes) {
    if (bytes.size() < 2) {
        return;
    }
    static Almacen almacen;
    Mostrador mostrador(almacen, Formato(bytes[1]));
    constexpr qsizetype kPasos = 24;
    for (const QByteArray& paso : bytes.mid(2).split(bytes[0]).mid(0, kPasos)) {
        mostrador.Paso(paso);
    }
}

} // namespace
} // namespace zv::fuzz

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    static QCoreApplication app(*argc, *argv); // finds the database driver
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t largo) {
    zv::fuzz::UnaEntrada(
        QByteArray(reinterpret_cast<const char*>(datos), static_cast<qsizetype>(largo)));
    return 0;
}
