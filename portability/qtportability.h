#pragma once

#include <QComboBox>
#include <QKeySequence>
#include <QLibraryInfo>

// What differs between Qt 5 and Qt 6 is here and nowhere else.

#if QT_VERSION_MAJOR == 5

/** Marks a slot that setupUi() connects by its name to currentIndexChanged(QString) of a box. */
#define COMBO_TEXT_SLOT Q_SLOT
#define FIRST_KEY_CODE(keySequence) (keySequence)[0]
#define LIBRARY_PATH QLibraryInfo::location
#define BEGIN_MODAL_GROUP(window) (window)->setAttribute(Qt::WA_GroupLeader)

template <typename Receiver>
void connectComboText(QComboBox *, Receiver *, void (Receiver::*)(const QString &))
{
}

#else

#define COMBO_TEXT_SLOT // boxes have no such signal: Qt would warn of a slot of that name
#define FIRST_KEY_CODE(keySequence) (keySequence)[0].toCombined()
#define LIBRARY_PATH QLibraryInfo::path
#define BEGIN_MODAL_GROUP(window) static_cast<void>(window) // modal windows block all others

/** Connects it where setupUi(), which comes before, cannot. */
template <typename Receiver>
void connectComboText(QComboBox *box, Receiver *receiver, void (Receiver::*slot)(const QString &))
{
    QObject::connect(box, &QComboBox::currentIndexChanged, receiver,
                     [=](int index) { (receiver->*slot)(box->itemText(index)); });
}

#endif
