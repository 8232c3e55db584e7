#include "till/TillGraph.h"

#include "platform/StringLiterals.h"

namespace zv {

TillGraph::TillGraph(const TillServices& s)
    : conexion_(database_, s.carpeta, s.log, s.dialogos, s.textos),
      transacciones_(database_, s.log), seguretat_(database_, s.log, s.dialogos, s.textos, s.reloj),
      registros_(database_, s.log, s.dialogos, seguretat_, s.importes, s.reloj),
      ini_(s.log, s.dialogos), configuracio_(std::make_unique<Configuracio>(
                                   ini_, s.registry, s.carpeta, s.importes.Formato())),
      marca_(s.registry), supervision_(s.cliente, s.registry, s.log, s.dialogos, s.textos,
                                       s.importes, [this] { return configuracio_->IP; }),
      entorno_{s,
               conexion_,
               transacciones_,
               registros_,
               supervision_,
               supervision_.LosSaldos(),
               seguretat_,
               configuracio_,
               ini_,
               s.carpeta + u"/ZVMonitor.ini"_s,
               marca_} {}

} // namespace zv
