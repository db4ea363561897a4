// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmBindings.h"

#include <cstdio>

static void Print(const char* theWhat, const LmKeyValueBinding& theRadio, const LmKeyValueBinding& theKnob,
                  const LmKeyValueBinding& theLamp)
{
    std::printf(
        "%s: radio %ld, knob %ld, lamp %ld\n", theWhat, theRadio.GetKeyPathValue("volume").GetSInt32(),
        theKnob.GetKeyPathValue("position").GetSInt32(), theLamp.GetKeyPathValue("brightness").GetSInt32());
}

int main()
{
    LmKeyValueBinding theRadio;
    LmKeyValueBinding theKnob;
    LmKeyValueBinding theLamp;
    theRadio.SetKeyPathValue("volume", LmValue(40L));
    theKnob.SetKeyPathValue("position", LmValue(0L));

    theKnob.Bind("position", &theRadio, "volume", NULL, NULL); // both ways
    theLamp.BindTo("brightness", &theRadio, "volume", NULL);   // one way
    Print("at first        ", theRadio, theKnob, theLamp);

    theKnob.SetKeyPathValue("position", LmValue(55L));
    Print("the knob turns  ", theRadio, theKnob, theLamp);

    theRadio.SetKeyPathValue("volume", LmValue(20L));
    Print("the radio fades ", theRadio, theKnob, theLamp);

    theLamp.SetKeyPathValue("brightness", LmValue(90L));
    Print("the lamp flares ", theRadio, theKnob, theLamp);

    theKnob.Unbind("position", &theRadio);
    theKnob.SetKeyPathValue("position", LmValue(70L));
    Print("the knob is off ", theRadio, theKnob, theLamp);
}
