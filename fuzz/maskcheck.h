#pragma once
// The rule every text of a masked box keeps, whatever was typed, pasted or stepped into it: the
// mask's length, every literal in place, and every input position holding a character its class
// takes.
#include "maskengine/maskengine.h"

#include <QString>

inline bool wellFormedForMask(const Tarnwell::MaskEngine &engine, const QString &text)
{
    if (text.size() != engine.length())
        return false;
    for (int i = 0; i < engine.length(); ++i) {
        if (engine.isLiteral(i) ? text.at(i) != engine.blankTemplate().at(i)
                                : !engine.acceptsAt(i, text.at(i)))
            return false;
    }
    return true;
}
