"""The first use that is left without saving: arguments are the monitor's process, and a language file
or nothing."""

import sys

from bus import Program, check_names
from till import Texts

monitor = Program(sys.argv[1])
texts = Texts(sys.argv[2] or None)
T = texts.text


def caption(key, spanish):
    return texts.caption("frmCfgMonitor", key, spanish)


ACCEPT = T("boton_0", "Aceptar")
monitor.answer(f"Monitor - {T('iniciando', 'Iniciando...')}", ACCEPT,
               T("primerUso", "Configura la aplicación para su primer uso"))
settings = monitor.window(caption("lbTitulo", "Monitor - Configuración"))
check_names(settings)
settings.button(caption("boton_0", "Salir")).press()
monitor.gone(settings)
# The title's key has the text's words in a language file.
wrong = T("errorDeConfiguracion", "No se han encontrado los datos de configuración de ZVMonitor")
title = wrong if sys.argv[2] else "Error de configuración"
monitor.answer(f"Monitor - {title}", ACCEPT, wrong)
