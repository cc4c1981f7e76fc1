#pragma once

class QWidget;

namespace qpt {

class TIEImageView;

// The session's long-lived forms, as the other forms reach them. Each is set
// when its form is made and cleared when it goes; a handler that needs
// another form tests first that it is set. They are plain widgets here, so
// that a form library needs only this one to reach the others.
inline QWidget* FormPinned = nullptr;
// The pinned window's picture and its layers.
inline TIEImageView* Image_Front = nullptr;
inline QWidget* FormTools = nullptr;
inline QWidget* FormSavePath = nullptr;
inline QWidget* FormSmallTools = nullptr;
// Made when a copy needs the tip, emptied again after use.
inline QWidget* TipForm = nullptr;
inline QWidget* FormMsg = nullptr;

// The form is set and on the screen.
bool FormShowing(const QWidget* form);

// Points the variable at the form, and back at nothing once the form goes.
void RegisterForm(QWidget*& variable, QWidget* form);

}  // namespace qpt
