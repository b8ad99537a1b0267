#pragma once

#include <QComboBox>
#include <QKeySequence>
#include <QLibraryInfo>

// This file is the only place for differences between Qt 5 and Qt 6.

#if QT_VERSION_MAJOR == 5

/** Marks a slot that setupUi() connects by name to currentIndexChanged(QString) of a combo box. */
#define COMBO_TEXT_SLOT Q_SLOT
#define FIRST_KEY_CODE(keySequence) (keySequence)[0]
#define LIBRARY_PATH QLibraryInfo::location
#define BEGIN_MODAL_GROUP(window) (window)->setAttribute(Qt::WA_GroupLeader)

template <typename Receiver>
void connectComboText(QComboBox *, Receiver *, void (Receiver::*)(const QString &))
{
}

#else

// boxes of Qt 6 have no such signal, and Qt would warn of a slot with that name
#define COMBO_TEXT_SLOT
#define FIRST_KEY_CODE(keySequence) (keySequence)[0].toCombined()
#define LIBRARY_PATH QLibraryInfo::path
#define BEGIN_MODAL_GROUP(window) static_cast<void>(window) // modal windows block all others

/** Connects the function when setupUi(), which runs before, cannot. */
template <typename Receiver>
void connectComboText(QComboBox *box, Receiver *receiver, void (Receiver::*slot)(const QString &))
{
    QObject::connect(box, &QComboBox::currentIndexChanged, receiver,
                     [=](int index) { (receiver->*slot)(box->itemText(index)); });
}

#endif
