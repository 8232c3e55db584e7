// The dialogs of the screen over a language folder of the test's own, in Spanish money.
#pragma once

#include "platform/StringLiterals.h"
#include "support/AlAbrir.h"
#include "support/CarpetaTemporal.h"
#include "support/ImprimeQt.h"
#include "ui/Importes.h"
#include "ui/Textos.h"
#include "ui/screens/DialogosPantalla.h"
#include "ui/screens/Tema.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

namespace zv::test {

class DialogosPrueba : public testing::Test {
  protected:
    static void SetUpTestSuite() { tema::Aplicar(*qApp); }

    void Fichero(const QString& texto) {
        carpeta_.Pon(u"RWLang.ini"_s, "\xef\xbb\xbf" + texto.toUtf8());
    }
    // A control by its name, which must be there.
    template <typename T>
    static T& Control(QWidget& pantalla, const char* nombre) {
        auto* control = pantalla.findChild<T*>(QString::fromLatin1(nombre));
        if (control == nullptr) {
            throw std::runtime_error(nombre);
        }
        return *control;
    }
    static QAbstractButton& Boton(QWidget& pantalla, const char* nombre) {
        return Control<QAbstractButton>(pantalla, nombre);
    }
    static QString Texto(QWidget& pantalla, const char* nombre) {
        return Control<QLabel>(pantalla, nombre).text();
    }
    static void Tocar(QWidget& pantalla, const char* nombre) {
        QTest::mouseClick(&Boton(pantalla, nombre), Qt::LeftButton);
    }
    // A key pressed on the control that has the focus.
    static void Tecla(QWidget& pantalla, Qt::Key tecla) {
        QWidget* foco = pantalla.focusWidget();
        QTest::keyClick(foco != nullptr ? foco : &pantalla, tecla);
    }
    // All that can be touched lies inside the window, is large enough, and has a name.
    static void ComprobarTactil(QWidget& pantalla) {
        QCoreApplication::processEvents();
        for (QAbstractButton* boton : pantalla.findChildren<QAbstractButton*>()) {
            const std::string nombre = boton->objectName().toStdString();
            if (!boton->isVisible()) {
                continue;
            }
            EXPECT_GE(boton->width(), tema::kToqueMinimo) << nombre;
            EXPECT_GE(boton->height(), tema::kToqueMinimo) << nombre;
            EXPECT_FALSE(boton->accessibleName().isEmpty() && boton->text().isEmpty()) << nombre;
            const QRect sitio(boton->mapTo(&pantalla, QPoint(0, 0)), boton->size());
            EXPECT_TRUE(pantalla.rect().contains(sitio)) << nombre;
        }
    }

    CarpetaTemporal carpeta_;
    Textos textos_{carpeta_.Ruta()};
    quint8 multiplicador_ = 100;
    Importes importes_{FormatoRegional(u"es_ES"_s), [this] { return multiplicador_; }};
    QWidget ventana_;
    DialogosPantalla dialogos_{u"ZVMonitor"_s, textos_, importes_, [this] { return &ventana_; }};
};

} // namespace zv::test
