// Time-outs of the gateway's link, all in milliseconds. Tests make them short.
#pragma once

namespace zv {

struct GatewayOptions {
    int conexion = 5000;        // connection and hello together, in Connect
    int respuesta = 5000;       // answer to any request
    int ping = 1000;            // between pings while an operation runs
    int pingReposo = 5000;      // between pings otherwise
    int silencio = 5000;        // nothing heard after something was sent: the link is lost
    int reintento = 250;        // between attempts to connect again
    int intento = 2000;         // one attempt
    int reanudar = 8000;        // all attempts
    int reapertura = 1000;      // the one attempt of a query on a link that was lost at rest
    int pausaReapertura = 3000; // from a reopening that failed to the next one
    int pendiente = 30000;      // end of a cancelled operation found by Connect
    int cancelacion = 300000;   // end of an operation that the cashier has cancelled or ended
    int tic = 100;              // how often the limits above are looked at
};

} // namespace zv
