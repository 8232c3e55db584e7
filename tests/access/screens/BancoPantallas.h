// The screens of users over a database of the test's own, with a scripted operator of the messages.
#pragma once

#include "../BancoUsuarios.h"
#include "support/AlAbrir.h"
#include "ui/screens/Tema.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

namespace zv::test {

class BancoPantallas : public BancoUsuarios {
  protected:
    static void SetUpTestSuite() { tema::Aplicar(*qApp); }

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
    static QLineEdit& Campo(QWidget& pantalla, const char* nombre) {
        return Control<QLineEdit>(pantalla, nombre);
    }
    static QComboBox& Lista(QWidget& pantalla) { return Control<QComboBox>(pantalla, "cmbNom"); }
    static QString Texto(QWidget& pantalla, const char* nombre) {
        return Control<QLabel>(pantalla, nombre).text();
    }
    static void Tocar(QWidget& pantalla, const char* nombre) {
        QTest::mouseClick(&Boton(pantalla, nombre), Qt::LeftButton);
    }
    // The numbers of the keys do not follow their digits.
    static void Cifras(QWidget& pantalla, const char* cifras) {
        static constexpr int kTeclaDe[] = {9, 4, 5, 6, 1, 2, 3, 7, 8, 0};
        for (const char* c = cifras; *c != '\0'; ++c) {
            Tocar(pantalla, QByteArray("teci_") + QByteArray::number(kTeclaDe[*c - '0']));
        }
    }
    // A name of the list, chosen as an operator does it: open the list, touch the row.
    static void Elegir(QWidget& pantalla, const QString& nombre) {
        QComboBox& lista = Lista(pantalla);
        const int fila = lista.findText(nombre, Qt::MatchExactly);
        ASSERT_GE(fila, 0) << nombre.toStdString();
        lista.showPopup();
        QAbstractItemView* vista = lista.view();
        const QModelIndex indice = lista.model()->index(fila, lista.modelColumn());
        vista->scrollTo(indice);
        QTest::mouseMove(vista->viewport(), vista->visualRect(indice).center());
        vista->setCurrentIndex(indice);
        // The list ignores a release in its first moments: the key has no such guard.
        QTest::keyClick(vista, Qt::Key_Return);
        ASSERT_FALSE(vista->isVisible());
    }
    static void Mostrar(QDialog& pantalla) {
        pantalla.show();
        QApplication::setActiveWindow(&pantalla);
        QApplication::processEvents();
    }
    // All that can be touched lies inside the window and is large enough.
    static void ComprobarTactil(QWidget& pantalla) {
        for (QWidget* control : pantalla.findChildren<QWidget*>()) {
            const bool toca = qobject_cast<QAbstractButton*>(control) != nullptr ||
                              qobject_cast<QComboBox*>(control) != nullptr ||
                              qobject_cast<QLineEdit*>(control) != nullptr;
            if (!toca || !control->isVisible() || control->window() != &pantalla ||
                qobject_cast<QComboBox*>(control->parentWidget()) != nullptr) {
                continue;
            }
            const std::string nombre = control->objectName().toStdString();
            EXPECT_GE(control->width(), tema::kToqueMinimo) << nombre;
            EXPECT_GE(control->height(), tema::kToqueMinimo) << nombre;
            EXPECT_FALSE(
                QAccessible::queryAccessibleInterface(control)->text(QAccessible::Name).isEmpty())
                << nombre;
            const QRect sitio(control->mapTo(&pantalla, QPoint(0, 0)), control->size());
            EXPECT_TRUE(pantalla.rect().contains(sitio)) << nombre;
        }
    }
    // Takes the table away while a screen is up, as another program may.
    void QuitarTabla() { base.Otro()->Ejecutar(u"DROP TABLE Usuarios"_s); }
};

} // namespace zv::test
