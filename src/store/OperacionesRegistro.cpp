// The five record operations as runs of statements. A statement that fails enters the operation's
// own handler, which may have it run again; the run goes on from there and not from the start.
#include "store/OperacionesRegistro.h"

#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "store/Palabras.h"
#include "store/Tablas.h"

#include <functional>
#include <limits>

namespace zv {

namespace {

constexpr int kMaximoTexto = 50;
constexpr int kReintentosProcesado = 3;
constexpr int kReintentosDiez = 9; // ten attempts in all

// How an operation meets a failure.
struct Manejador {
    int reintentos = 0;
    bool borraResultado = true;
    std::function<QString(const ErrorEjecucion&, int cuenta)> lineaReintento;
    std::function<QString(const ErrorEjecucion&)> lineaFinal;
};

// Runs the statements of one call, one after the other. After the last attempt nothing runs any
// more: the rest of the operation is skipped.
class Rutina {
  public:
    Rutina(Log& log, qint32& resultado, Manejador manejador)
        : log_(log), resultado_(resultado), manejador_(std::move(manejador)) {}

    template <class F>
    void operator()(F&& sentencia) {
        while (!fallo_) {
            try {
                sentencia();
                return;
            } catch (const ErrorEjecucion& e) {
                Manejar(e);
            }
        }
    }

    // The failure that ended the operation, if one did.
    const std::optional<ErrorEjecucion>& Fallo() const { return fallo_; }

  private:
    void Manejar(const ErrorEjecucion& e) {
        if (manejador_.borraResultado) {
            // For good: even when a retry succeeds, a key read before it is not answered.
            resultado_ = 0;
        }
        if (cuenta_ < manejador_.reintentos) {
            ++cuenta_;
            Anotar(manejador_.lineaReintento(e, cuenta_));
        } else {
            fallo_ = e;
            Anotar(manejador_.lineaFinal(e));
        }
    }
    void Anotar(const QString& linea) {
        try {
            log_.LogLinea(linea);
        } catch (const ErrorEjecucion&) {
            // Record operations never raise, not for a log that cannot be written either.
            return;
        }
    }

    Log& log_;
    qint32& resultado_;
    Manejador manejador_;
    int cuenta_ = 0;
    std::optional<ErrorEjecucion> fallo_;
};

// The first characters of a text; one that needs two code units counts once and stays whole. A NUL
// ends it: the table refuses one, and money that has moved is filed whatever a row holds.
QString Primeros(const QString& texto) {
    qsizetype fin = 0;
    for (int i = 0; i < kMaximoTexto && fin < texto.size() && !texto.at(fin).isNull(); ++i) {
        const bool doble = texto.at(fin).isHighSurrogate() && fin + 1 < texto.size() &&
                           texto.at(fin + 1).isLowSurrogate();
        fin += doble ? 2 : 1;
    }
    return texto.left(fin);
}

qint32 ALong(qint64 clave) {
    if (clave < std::numeric_limits<qint32>::min() || clave > std::numeric_limits<qint32>::max()) {
        throw errores::Desbordamiento();
    }
    return static_cast<qint32>(clave);
}

QString Corchete(const QString& origen) {
    return u" ["_s + origen + u']';
}
QString CorcheteSiHay(const QString& origen) {
    return origen.isEmpty() ? QString() : Corchete(origen);
}

QString ConNumero(const char* etiqueta, const ErrorEjecucion& e) {
    return QLatin1String(etiqueta) + QString::number(e.Numero());
}
QString ConDescripcion(const char* etiqueta, const ErrorEjecucion& e) {
    return ConNumero(etiqueta, e) + u" - "_s + e.Descripcion();
}

// The general form of a date: midnight shows no time.
QString FechaGeneral(const QDateTime& fecha) {
    return fecha.toString(fecha.time() == QTime(0, 0) ? u"dd/MM/yyyy"_s : u"dd/MM/yyyy H:mm:ss"_s);
}

void PonerVenta(RecordSet& filas, const DatosVenta& venta) {
    filas.Poner(columna::kId1, Primeros(venta.id1));
    filas.Poner(columna::kId2, Primeros(venta.id2));
    filas.Poner(columna::kIdCaja, venta.idcaja);
    filas.Poner(columna::kTerminal, Primeros(venta.terminal));
    filas.Poner(columna::kVendedor, Primeros(venta.vendedor));
    filas.Poner(columna::kFormaPago, Primeros(venta.formapago));
}

} // namespace

DatosVenta LeerVenta(const Row& fila) {
    return {fila.LeerTexto(columna::kId1),      fila.LeerTexto(columna::kId2),
            fila.LeerLong(columna::kIdCaja),    fila.LeerTexto(columna::kTerminal),
            fila.LeerTexto(columna::kVendedor), fila.LeerTexto(columna::kFormaPago)};
}

OperacionesRegistro::OperacionesRegistro(DatabaseEngine& motor, Log& log, Dialogos& dialogos,
                                         const Firma& firma, const Importes& importes,
                                         const Clock& reloj)
    : motor_(motor), log_(log), dialogos_(dialogos), firma_(firma), importes_(importes),
      reloj_(reloj) {}

qint32 OperacionesRegistro::AñadirProcesado(const QString& origen,
                                            const RegistroProcesado& registro) {
    qint32 resultado = 0;
    std::unique_ptr<RecordSet> filas;
    Rutina paso(log_, resultado,
                {kReintentosProcesado, true,
                 [&](const ErrorEjecucion& e, int cuenta) {
                     return ConNumero("ADDPROC_ERROR_", e) + u"_RESUME_"_s +
                            QString::number(cuenta) + CorcheteSiHay(origen);
                 },
                 [&](const ErrorEjecucion& e) {
                     return ConDescripcion("ADDPROC_ERROR_", e) + CorcheteSiHay(origen);
                 }});

    paso([&] { filas = motor_.AbrirTabla(tabla::kProcesados); });
    paso([&] { filas->Nuevo(); });
    paso([&] {
        filas->Poner(columna::kFechaZV, reloj_.Ahora());
        filas->Poner(columna::kFechaVenta, registro.fechaVenta);
        filas->Poner(columna::kImporteVenta, ValorBD(registro.importeVenta));
        filas->Poner(columna::kCobrado, ValorBD(registro.cobrado));
        filas->Poner(columna::kDevuelto, ValorBD(registro.devuelto));
        filas->Poner(columna::kEstado, registro.estado);
        PonerVenta(*filas, registro.venta);
        filas->Poner(columna::kError, Primeros(registro.error));
        filas->Poner(columna::kIdCierre, 0);
        filas->Poner(columna::kSaldoZV, ValorBD(registro.saldoZV));
        filas->Poner(columna::kIdCola, registro.idcola);
    });
    paso([&] {
        filas->Poner(columna::kUsuario, firma_.UsuarioFast() ? u"ZVFast"_s : firma_.GetNom());
    });
    paso([&] { resultado = ALong(filas->ClaveNueva()); });
    paso([&] { filas->Actualizar(); });
    paso([&] {
        log_.LogLinea(u"ADDPROC_OK_"_s + QString::number(resultado) +
                      (origen.isEmpty() ? QString() : u'_' + origen));
    });
    paso([&] { filas->Cerrar(); });
    return resultado;
}

qint32 OperacionesRegistro::AñadirColaProcesada(const QString& origen, qint32 idZV,
                                                const QString& estado, Currency cobrado,
                                                Currency devuelto, Currency saldoZV,
                                                const QString& error) {
    qint32 resultado = 0;
    std::unique_ptr<RecordSet> cola;
    Rutina paso(log_, resultado,
                {kReintentosDiez, true,
                 [](const ErrorEjecucion& e, int cuenta) {
                     return ConNumero("ADDPROC_COLA_ERROR_", e) + u"_RESUME_"_s +
                            QString::number(cuenta);
                 },
                 [](const ErrorEjecucion& e) { return ConDescripcion("ADDPROC_COLA_ERROR_", e); }});

    bool encontrada = false;
    RegistroProcesado registro;
    paso([&] { cola = motor_.AbrirTabla(tabla::kCola); });
    paso([&] { encontrada = cola->Buscar(idZV); });
    if (encontrada) {
        paso([&] {
            const Row& fila = cola->Actual();
            // A credit that is Null counts as 0.
            registro.importeVenta =
                fila.LeerCurrency(columna::kImporte) - fila.LeerCurrency(columna::kCreditoError);
        });
        paso([&] {
            const Row& fila = cola->Actual();
            // The time of filing: the sale's own date is dropped.
            registro.fechaVenta = reloj_.Ahora();
            registro.cobrado = cobrado;
            registro.devuelto = devuelto;
            registro.estado = estado;
            registro.venta = LeerVenta(fila);
            registro.saldoZV = saldoZV;
            registro.error = error;
            registro.idcola = idZV;
            resultado = AñadirProcesado(origen, registro);
        });
        if (resultado > 0) {
            paso([&] { cola->Borrar(); });
            paso([&] {
                log_.LogLinea(u"PROCCOLA_DELCOLA_OK_"_s + QString::number(idZV) +
                              CorcheteSiHay(origen));
            });
        }
    }
    paso([&] { cola->Cerrar(); });
    return resultado;
}

qint32 OperacionesRegistro::BorrarColaGrupo(const QString& origen, qint32 idZV,
                                            const QString& tipoGrupo) {
    qint32 resultado = 0;
    std::vector<Row> filas;
    Rutina paso(log_, resultado, {0, false, {}, [&](const ErrorEjecucion& e) {
                                      return ConDescripcion("DELCOLA_GRUPO_ERROR_", e) +
                                             CorcheteSiHay(origen);
                                  }});

    paso([&] {
        filas = motor_.Consultar(u"SELECT * FROM cola WHERE idzv="_s + QString::number(idZV));
    });
    if (!filas.empty()) {
        paso([&] {
            resultado = AñadirColaProcesada((origen.isEmpty() ? QString() : origen + u'_') +
                                                u"DELCOLA_GRUPO_"_s + tipoGrupo,
                                            filas.front().LeerLong(columna::kIdZV), estado::kCancel,
                                            0, 0, 0, u"Anulada por cobro agrupado "_s + tipoGrupo);
        });
        if (resultado == 0) {
            paso([&] { log_.LogLinea(u"DELCOLA_GRUPO: AñadirColaProcesada FAIL"_s); });
        }
    }
    return resultado;
}

qint32 OperacionesRegistro::AñadirHistorial(const QString& origen, const QString& id1,
                                            const QString& id2, qint32 idcaja,
                                            const QDateTime& fecha, Currency importe) {
    qint32 resultado = 0;
    std::unique_ptr<RecordSet> filas;
    // What was read before the failure is kept, and goes back to the caller.
    Rutina paso(log_, resultado, {0, false, {}, [&](const ErrorEjecucion& e) {
                                      return ConDescripcion("ADDHIS_ERROR_", e) + Corchete(origen);
                                  }});

    QString clave;
    paso([&] { filas = motor_.AbrirTabla(tabla::kHistorial); });
    paso([&] { filas->Nuevo(); });
    paso([&] {
        clave = Primeros(QString::number(fecha.date().year()) + u'/' + id1 + u'/' + id2 + u'/' +
                         QString::number(idcaja) + u' ' + importes_.FormatoImporte(importe));
    });
    paso([&] { filas->Poner(columna::kId, clave); });
    paso([&] { filas->Poner(columna::kFecha, reloj_.Ahora()); });
    paso([&] { resultado = ALong(filas->ClaveNueva()); });
    paso([&] { filas->Actualizar(); });
    paso([&] {
        log_.LogLinea(u"ADDHIS_OK_"_s + QString::number(resultado) + u": "_s + clave +
                      Corchete(origen));
    });
    paso([&] { filas->Cerrar(); });
    return resultado;
}

qint32 OperacionesRegistro::AñadirCola(const QString& origen, const QDateTime& fecha,
                                       Currency importe, const DatosVenta& venta, bool mostrarError,
                                       const std::function<void()>& antesDeAvisar) {
    qint32 resultado = 0;
    std::unique_ptr<RecordSet> filas;
    const auto campos = [&](const QString& importeTexto) {
        return u" FECHA("_s + FechaGeneral(fecha) + u") ID1("_s + venta.id1 + u") ID2("_s +
               venta.id2 + u") IDCAJA("_s + QString::number(venta.idcaja) + u") IMPORTE("_s +
               importeTexto + u')' + Corchete(origen);
    };
    Rutina paso(log_, resultado,
                {kReintentosDiez, true,
                 [&](const ErrorEjecucion& e, int cuenta) {
                     return ConNumero("ADDCOLA_ERROR_", e) + u" Reintentando "_s +
                            QString::number(cuenta) + Corchete(origen);
                 },
                 [&](const ErrorEjecucion& e) {
                     // The format asks the device, which may be what has failed.
                     QString importeTexto = importe.ATexto();
                     try {
                         importeTexto = importes_.FormatoImporte(importe);
                     } catch (const ErrorEjecucion&) {
                         return ConDescripcion("ADDCOLA_ERROR_", e) + campos(importeTexto);
                     }
                     return ConDescripcion("ADDCOLA_ERROR_", e) + campos(importeTexto);
                 }});

    qint32 historia = 0;
    paso([&] {
        historia =
            AñadirHistorial(u"ADDCOLA"_s, venta.id1, venta.id2, venta.idcaja, fecha, importe);
    });
    if (historia <= 0) {
        return 0;
    }
    paso([&] { filas = motor_.AbrirTabla(tabla::kCola); });
    paso([&] { filas->Nuevo(); });
    paso([&] {
        filas->Poner(columna::kFecha, fecha);
        filas->Poner(columna::kImporte, ValorBD(importe));
        PonerVenta(*filas, venta);
        filas->Poner(columna::kCreditoError, ValorBD(0));
    });
    paso([&] { resultado = ALong(filas->ClaveNueva()); });
    paso([&] { filas->Actualizar(); });
    paso([&] {
        log_.LogLinea(u"ADDCOLA_OK_"_s + QString::number(resultado) +
                      campos(importes_.FormatoImporte(importe)));
    });
    paso([&] { filas->Cerrar(); });

    if (paso.Fallo() && mostrarError) {
        // No lock of ours may wait for the operator.
        filas.reset();
        if (antesDeAvisar) {
            antesDeAvisar();
        }
        dialogos_.MostrarMensaje(
            u"Error de base de datos"_s,
            u"Se ha producido un error al añadir un registro en la cola: \r\n"_s +
                QString::number(paso.Fallo()->Numero()) + u" - "_s + paso.Fallo()->Descripcion());
    }
    return resultado;
}

} // namespace zv
