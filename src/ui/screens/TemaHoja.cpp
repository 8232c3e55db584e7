// The style sheet. Controls are found by class, by the names that all screens share (frameCab,
// framePie, lbTitulo, ...) and by the role of a button.
#include "platform/StringLiterals.h"
#include "ui/screens/Tema.h"

#include <QRegularExpression>

namespace zv::tema {

namespace {

// @names are replaced by the theme's colours.
constexpr auto kHoja = R"(
QDialog, QMainWindow, QMessageBox { background: @cuerpo; }
QLabel { background: transparent; color: @texto; }
QLabel:disabled { color: @apagado; }
QToolTip { background: @cabecera; color: @cabtexto; border: none; padding: 6px 8px; }

#frameCab { background: @cabecera; border: none; }
#frameCab QLabel { color: @cabtexto; }

QPushButton {
  background: white; color: @texto; border: 2px solid @mando; border-radius: 8px;
  padding: 12px 16px; font-size: 17px;
}
QPushButton:hover { background: #f1f5f9; }
QPushButton:pressed, QPushButton:checked { background: #dbe3ee; border-color: #94a3b8; }
QPushButton:default, QPushButton[papel="principal"] {
  background: @cabecera; color: white; border-color: @cabecera;
}
QMessageBox QPushButton { min-width: 100px; }
QPushButton[papel="principal"] { font-weight: bold; }
QPushButton:default:hover, QPushButton[papel="principal"]:hover { background: #2f3d52; }
QPushButton:default:pressed, QPushButton[papel="principal"]:pressed { background: #4b5b73; }
QPushButton[papel="peligro"] {
  background: #b91c1c; color: white; border-color: #b91c1c; font-weight: bold;
}
QPushButton[papel="peligro"]:pressed { background: #7f1d1d; }
QPushButton:focus { border: 3px solid @resalte; }
QPushButton:disabled, QPushButton[papel]:disabled {
  background: #eef2f6; color: @apagado; border: 2px solid #e2e8f0; font-weight: normal;
}

QToolButton {
  background: transparent; color: @texto; border: 2px solid transparent; border-radius: 8px;
  padding: 8px;
}
QToolButton[papel="normal"] { background: white; border-color: @mando; }
QToolButton[papel="normal"]:hover { background: #f1f5f9; }
QToolButton[papel="normal"]:pressed { background: #dbe3ee; border-color: #94a3b8; }
QToolButton[papel="normal"]:focus { border: 3px solid @resalte; }
QToolButton:hover { background: #e8edf3; }
QToolButton:pressed, QToolButton:checked { background: #d3dce8; }
QToolButton:focus { border-color: @resalte; }
QToolButton:disabled { color: @apagado; background: transparent; }

#frameCab QToolButton { color: @cabtexto; padding: 0 4px; }
#frameCab QToolButton:hover { background: #374151; }
#frameCab QToolButton:pressed { background: #4b5563; }
#frameCab QToolButton:checked { background: @ambar; color: @texto; font-weight: bold; }
#frameCab QToolButton:focus { border-color: #93c5fd; }
#frameCab QToolButton:disabled { color: #6b7280; }
#frameCab QToolButton#btnW_1:hover, #frameCab #btnTancar:hover { background: #b91c1c; }
#frameCab QToolButton#btnW_1:pressed, #frameCab #btnTancar:pressed { background: #7f1d1d; }
#frameCab #btnLogo, #frameCab #btnLogo:hover, #frameCab #btnLogo:pressed {
  background: transparent; border: none;
}

/* The state line speaks in amber and green, which only a dark ground makes legible. */
#frmEstado { background: @barra; border: none; }
#frmEstado QLabel { color: @cabtexto; }
#frmEstado QLineEdit { min-height: 40px; max-height: 40px; }
zv--Paginador { background: @cuerpo; border: none; }
zv--Paginador QToolButton { background: white; border: 2px solid @mando; }
zv--Paginador QToolButton:pressed { background: #cbd5e1; }
zv--Paginador QToolButton:disabled { background: transparent; border-color: #e2e8f0; }

#framePie { background: white; border: none; border-top: 1px solid @borde; }
QToolButton[papel="pie"] { font-size: 16px; padding: 0; }
QToolButton[papel="pie"]:checked { background: @ambar; }
QToolButton[papel="pie"]:checked:pressed { background: #d9a200; }

QPushButton[papel="parte"] { border-radius: 0; padding: 12px 8px; }
QPushButton[lugar="primera"] {
  border-top-left-radius: 8px; border-bottom-left-radius: 8px; border-right-width: 0;
}
QPushButton[lugar="ultima"] {
  border-top-right-radius: 8px; border-bottom-right-radius: 8px; border-left-width: 0;
}
QPushButton[lugar="sola"] { border-radius: 8px; }
QPushButton[papel="parte"]:checked {
  background: @cabecera; color: white; border-color: @cabecera; font-weight: bold;
}
QPushButton[papel="parte"]:focus { border: 3px solid @resalte; }

QPushButton[papel="tecla"], QToolButton[papel="tecla"] {
  background: white; border: 2px solid @mando; border-radius: 10px; padding: 0;
  font-size: 26px; font-weight: bold; color: @texto;
}
QPushButton[papel="tecla"]:hover, QToolButton[papel="tecla"]:hover { background: #f1f5f9; }
QPushButton[papel="tecla"]:pressed, QToolButton[papel="tecla"]:pressed {
  background: #cbd5e1; border-color: #94a3b8;
}
QToolButton[papel="tecla"] { font-size: 16px; font-weight: normal; }

QLineEdit, QTextEdit, QPlainTextEdit, QSpinBox, QDoubleSpinBox, QComboBox, QDateEdit, QTimeEdit,
QDateTimeEdit {
  background: white; color: @texto; border: 2px solid @mando; border-radius: 8px;
  min-height: 44px; padding: 0 10px; font-size: 18px;
  selection-background-color: @resalte; selection-color: white;
}
QTextEdit, QPlainTextEdit { padding: 6px 10px; }
QLineEdit { lineedit-password-character: 42; }
QLineEdit:focus, QTextEdit:focus, QPlainTextEdit:focus, QSpinBox:focus, QDoubleSpinBox:focus,
QComboBox:focus, QDateEdit:focus, QTimeEdit:focus, QDateTimeEdit:focus {
  border: 3px solid @resalte; padding: 0 9px;
}
QLineEdit:disabled, QTextEdit:disabled, QPlainTextEdit:disabled, QSpinBox:disabled,
QComboBox:disabled, QDateEdit:disabled, QTimeEdit:disabled, QDateTimeEdit:disabled {
  background: #f1f5f9; color: @apagado; border-color: #e2e8f0;
}
QLineEdit[activo="true"] { border: 3px solid @resalte; padding: 0 9px; }
QLineEdit:read-only { background: #f1f5f9; }
QLineEdit[estado="bueno"] { background: #cccccc; }
QLineEdit[estado="malo"] { background: #c00000; color: white; }
QLineEdit[papel="importe"] { font-size: 34px; font-weight: bold; min-height: 60px; }
QComboBox { combobox-popup: 0; }
QComboBox::drop-down { border: none; width: 44px; }
QComboBox::down-arrow { image: url(zviconos:actions/22/go-down.svg); width: 22px; height: 22px; }
QSpinBox::up-button, QDoubleSpinBox::up-button, QDateTimeEdit::up-button {
  border: none; border-left: 1px solid @borde; width: 48px;
}
QSpinBox::down-button, QDoubleSpinBox::down-button, QDateTimeEdit::down-button {
  border: none; border-left: 1px solid @borde; border-top: 1px solid @borde; width: 48px;
}
QSpinBox::up-arrow, QDoubleSpinBox::up-arrow, QDateTimeEdit::up-arrow {
  image: url(zviconos:actions/22/go-up.svg); width: 18px; height: 18px;
}
QSpinBox::down-arrow, QDoubleSpinBox::down-arrow, QDateTimeEdit::down-arrow {
  image: url(zviconos:actions/22/go-down.svg); width: 18px; height: 18px;
}
QComboBox QAbstractItemView { background: white; outline: 0; border: 2px solid @mando; }
QComboBox QAbstractItemView::item {
  min-height: 44px; padding: 0 10px; border: none; background: white; color: @texto;
}
QComboBox QAbstractItemView::item:selected { background: @resalte; color: white; }

QCheckBox, QRadioButton { spacing: 10px; min-height: 44px; font-size: 17px; color: @texto; }
QCheckBox::indicator, QRadioButton::indicator {
  width: 26px; height: 26px; border: 2px solid #64748b; background: white;
}
QCheckBox::indicator { border-radius: 6px; }
QRadioButton::indicator { border-radius: 15px; }
QCheckBox::indicator:focus, QRadioButton::indicator:focus { border: 3px solid @resalte; }
QCheckBox::indicator:checked {
  background: @ambar; border-color: @texto; image: url(zviconos:actions/22/dialog-ok-apply.svg);
}
QRadioButton::indicator:checked {
  border-color: @texto;
  background: qradialgradient(cx:0.5, cy:0.5, radius:0.5, fx:0.5, fy:0.5,
    stop:0 @texto, stop:0.36 @texto, stop:0.42 @ambar, stop:1 @ambar);
}
QCheckBox:focus, QRadioButton:focus { border: 2px solid @resalte; border-radius: 8px; }
QCheckBox::indicator:disabled, QRadioButton::indicator:disabled {
  border-color: @borde; background: #eef2f6;
}
QCheckBox:disabled, QRadioButton:disabled { color: @apagado; }

.QGroupBox {
  border: 1px solid @borde; border-radius: 8px; margin-top: 12px; padding: 16px 12px 12px 12px;
  font-size: 16px; background: white;
}
.QGroupBox::title { subcontrol-origin: margin; left: 12px; padding: 0 6px; color: @tenue; }

zv--Tarjeta { border: none; margin: 0; padding: 44px 0 0 0; }
zv--SelectorTres { background: transparent; border: none; margin: 0; padding: 0; }
zv--Interruptor { font-size: 17px; }

QLabel[letra="texto"] { font-size: 18px; }
QLabel[letra="nota"] { font-size: 16px; color: @tenue; }
QLabel[letra="cifra"] { font-size: 20px; font-weight: bold; }
QLabel[letra="total"] { font-size: 34px; font-weight: bold; }

QTabWidget::pane { border: 1px solid @borde; border-radius: 8px; background: white; }
QTabBar::tab {
  background: transparent; color: @tenue; min-height: 44px; min-width: 88px; padding: 2px 16px;
  font-size: 16px; border-bottom: 4px solid transparent;
}
QTabBar::tab:selected { color: @texto; font-weight: bold; border-bottom-color: @ambar; }
QTabBar::tab:focus { background: #dbeafe; }
QTabBar::tab:disabled { color: @apagado; }

QTableView {
  background: white; alternate-background-color: #f8fafc; gridline-color: #e2e8f0;
  border: 1px solid @borde; font-size: 16px; outline: 0;
  selection-background-color: #dbeafe; selection-color: @texto;
}
QTableView:focus { border: 2px solid @resalte; }
QTableView:disabled { color: @apagado; background: #f8fafc; }
QHeaderView { background: #e2e8f0; }
QHeaderView::section {
  background: #e2e8f0; color: @tenue; border: none; border-right: 1px solid @borde;
  padding: 0 8px; min-height: 44px; font-size: 15px; font-weight: bold;
}
QHeaderView::section:disabled { color: @apagado; }
zv--VistaRejilla, zv--VistaRejilla:disabled { border: none; background: @cuerpo; }
zv--VistaRejilla QHeaderView::section { padding: 0 6px; font-size: 14px; }
QTableCornerButton::section { background: #e2e8f0; border: none; }

QScrollArea { background: transparent; border: none; }
QScrollBar:vertical { background: #eef2f6; width: 28px; margin: 0; border: none; }
QScrollBar:horizontal { background: #eef2f6; height: 28px; margin: 0; border: none; }
QScrollBar::handle { background: #94a3b8; border-radius: 8px; margin: 5px; }
QScrollBar::handle:vertical { min-height: 56px; }
QScrollBar::handle:horizontal { min-width: 56px; }
QScrollBar::handle:pressed { background: @tenue; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }

QProgressBar {
  background: #e2e8f0; border: none; border-radius: 6px; min-height: 12px; text-align: center;
}
QProgressBar::chunk { background: @verde; border-radius: 6px; }
)";

// Lengths grow, but the lines of borders stay as thin as they are.
QString Escalada(const QString& hoja, double escala) {
    constexpr int kLineaMaxima = 4;
    static const QRegularExpression kLongitud(u"(\\d+)px"_s);
    QString salida;
    qsizetype hasta = 0;
    for (auto it = kLongitud.globalMatch(hoja); it.hasNext();) {
        const QRegularExpressionMatch caso = it.next();
        const int pixeles = caso.captured(1).toInt();
        salida += QStringView(hoja).mid(hasta, caso.capturedStart() - hasta);
        salida +=
            QString::number(pixeles <= kLineaMaxima ? pixeles : Px(pixeles, escala)) + u"px"_s;
        hasta = caso.capturedEnd();
    }
    salida += QStringView(hoja).mid(hasta);
    return salida;
}

} // namespace

QString HojaDeEstilo(double escala) {
    QString hoja = QString::fromLatin1(kHoja);
    if (escala != 1) {
        hoja = Escalada(hoja, escala);
    }
    const auto poner = [&hoja](const char* nombre, const QColor& color) {
        hoja.replace(QLatin1String(nombre), color.name());
    };
    poner("@cabecera", kCabecera);
    poner("@cabtexto", kCabeceraTexto);
    poner("@barra", kBarra);
    poner("@cuerpo", kCuerpo);
    poner("@texto", kTexto);
    poner("@tenue", kTextoTenue);
    poner("@apagado", kTextoApagado);
    poner("@borde", kBorde);
    poner("@mando", kBordeControl);
    poner("@resalte", kResalte);
    poner("@ambar", kAmbar);
    poner("@verde", kVerde);
    return hoja;
}

} // namespace zv::tema
