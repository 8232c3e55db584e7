// Numbers of the failures that the engine raises by itself: SQLite's own codes where it has one, so
// that the log tells one kind of trouble by one number whoever found it.
#pragma once

namespace zv {

inline constexpr int kErrorSQLite = 1;
inline constexpr int kErrorSoloLectura = 8;
inline constexpr int kErrorNoEncontrada = 12;
inline constexpr int kErrorUso = 21;
inline constexpr int kErrorParametros = 25;
inline constexpr int kErrorNoEsBaseDeDatos = 26;
inline constexpr int kErrorDeshechaPorElMotor = 516;
inline constexpr int kErrorFicheroMovido = 1032;
inline constexpr int kErrorCerrada = 3704; // the data layer's: SQLite has none

} // namespace zv
