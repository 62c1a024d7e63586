#pragma once

class QWidget;

namespace Tarnwell {

// Takes the polish requests that Qt posts for every new widget off the event queue, for a new
// control and its inner widgets, at the end of the control's constructor. Every object that still
// has a posted event when it is destroyed costs a scan of the thread's whole event queue, so a
// form that creates and drops a thousand controls of up to four widgets each before the loop runs
// would spend most of its time scanning. Nothing is lost: a widget is polished anyway when it is
// first shown, and the controls' size hints polish before they measure.
void dropPolishRequests(QWidget *control);

} // namespace Tarnwell
