// The concept of a record: what a row of procesados is called, and which totals it changes. The
// places that show records tell rows apart by rules of their own; each set of rules is data.
#pragma once

#include "platform/Currency.h"
#include "ui/Clave.h"

#include <QString>

#include <array>
#include <span>
#include <vector>

namespace zv {

class Textos;

// What the rules look at. The texts are compared exactly; Null reads as empty, or as 0.
struct DatosConcepto {
    QString terminal;
    QString id1;
    Currency importeVenta; // minor units, as are the other amounts
    Currency cobrado;
    Currency devuelto;
};

// Which sum of a period a record adds to.
enum class SumaPeriodo { Cobros, Abonos, Pagos, Ingresos };
inline constexpr std::size_t kSumasPeriodo = 4;

// How much of it.
enum class Aporte {
    Nada,
    Neto, // cobrado - devuelto
    Devuelto,
    DevueltoNegativo,
    CobradoPositivo, // nothing when it is not above 0
    DevueltoPositivo
};
Currency ValorDe(Aporte aporte, const DatosConcepto& datos);

// A further condition of a rule.
enum class PruebaConcepto {
    Ninguna,
    SoloDevuelto, // devuelto above 0 and cobrado 0
    VentaPositiva // importeVenta above 0
};

// What stands behind the text of a concept.
enum class DetalleConcepto {
    Ninguno,
    Error,
    FormaPago,
    FormaPagoAparte // parted by a blank
};

struct ReglaConcepto {
    struct Apunte {
        SumaPeriodo suma = SumaPeriodo::Cobros;
        Aporte aporte = Aporte::Nada;
    };

    const QString* id1; // none: any
    PruebaConcepto prueba;
    const Clave* texto;
    DetalleConcepto detalle = DetalleConcepto::Ninguno;
    std::array<Apunte, 2> apuntes = {};
    Aporte movimiento = Aporte::Neto; // what it adds to a running balance
};

// The first rule that fits counts; the last one of each list fits any record.
struct VarianteConcepto {
    std::span<const ReglaConcepto> delMonitor; // records with terminal "ZV"
    std::span<const ReglaConcepto> deVenta; // the others; without rules the first ones are theirs

    // The rules are numbered through both lists.
    std::size_t Reglas() const { return delMonitor.size() + deVenta.size(); }
    const ReglaConcepto& Regla(std::size_t n) const {
        return n < delMonitor.size() ? delMonitor[n] : deVenta[n - delMonitor.size()];
    }
    // Number of the rule for a record.
    std::size_t Clasificar(const DatosConcepto& datos) const;
};

// The period of the cash office.
extern const VarianteConcepto kConceptosCaja;
// The movements of a past close; they have no totals. Payments of change that was cancelled count
// as grouped, and a sale is told by what was given back, not by its amount.
extern const VarianteConcepto kConceptosHistorial;
// The registers of charges and incidents: whatever the terminal, and to no total.
extern const VarianteConcepto kConceptosRegistro;

// The texts of a variant, looked up once for many records.
class TextosConcepto {
  public:
    TextosConcepto(const VarianteConcepto& variante, const Textos& textos);

    // detalle: the record's column that the rule asks for, if it asks for one.
    QString Texto(std::size_t regla, const QString& detalle) const;

  private:
    const VarianteConcepto& variante_;
    std::vector<QString> textos_; // by the numbers of the rules
};

} // namespace zv
