#!/usr/bin/env python3
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
"""MakeJournal.py <changes> [<objects>]: writes a journal with so many changes to the standard output.

It is what a recorder would have written of a person who drags sliders: models, each with a slider that is bound both
ways and a text that follows through a transform. Each drag is an action that leads to an event, four changes or sets
that change nothing, and a transform. For measuring lminspect.
"""

import sys


def value(kind, content):
    return '{"kind":"%s","value":%s}' % (kind, content)


def thing(number, kind, name):
    return '{"id":%d,"class":"%s","name":"%s"}' % (number, kind, name)


class Maker:
    def __init__(self, objects):
        self.n = 0
        self.t = 0
        self.models = [(thing(3 * i + 1, "LmKeyValueBinding", "model %d" % i),
                        thing(3 * i + 2, "LmControlBinding", "slider %d" % i),
                        thing(3 * i + 3, "LmControlBinding", "text %d" % i)) for i in range(objects)]
        self.values = [0] * objects
        self.lines = []
        self.write = self.lines.append

    def entry(self, cause, what, fields):
        self.n += 1
        self.t += 4000
        self.write('{"n":%d,%s"t":%d,"what":"%s",%s}' % (
            self.n, '"cause":%d,' % cause if cause else "", self.t, what, fields))
        return self.n

    def begin(self):
        self.entry(0, "begin", '"journal":"lmbindings","version":1,"library":"1.0.0","started":"2026-11-22T10:15:50Z",'
                               '"file":1,"strings":1000,"callerLimit":0,"pointer":8')
        for i, (model, slider, text) in enumerate(self.models):
            for which in (model, slider, text):
                self.entry(0, "made", '"object":%s,"role":"binding"' % which)
            self.entry(0, "bind", '"object":%s,"key":"value","from":%s,"fromKey":"level","record":%d'
                       % (slider, model, 3 * i + 1))
            self.entry(0, "bind", '"object":%s,"key":"level","from":%s,"fromKey":"value","record":%d'
                       % (model, slider, 3 * i + 2))
            self.entry(0, "bind", '"object":%s,"key":"value","from":%s,"fromKey":"level",'
                                  '"transform":{"id":%d,"class":"LmToStringTransform"},"record":%d'
                       % (text, model, i + 1, 3 * i + 3))

    def change(self, cause, which, key, was, new):
        changing = self.entry(cause, "changing", '"object":%s,"key":"%s","was":%s,"to":%s' % (which, key, was, new))
        return self.entry(cause, "changed", '"object":%s,"key":"%s","was":%s,"is":%s,"changing":%d'
                          % (which, key, was, new, changing))

    def drag(self, i):
        """Three changes."""
        model, slider, text = self.models[i]
        old, new = self.values[i], (self.values[i] + 1) % 101
        self.values[i] = new
        record = 3 * i + 1
        action = self.entry(0, "action", '"event":"kEventMouseDragged","class":"mous","kind":6,"place":[%d,40]' % new)
        event = self.entry(action, "event", '"object":%s,"event":"kEventControlValueFieldChanged","class":"cntl",'
                                            '"kind":151' % slider)
        moved = self.change(event, slider, "value", value("uint32", old), value("uint32", new))
        update = self.entry(moved, "update", '"object":%s,"key":"level","from":%s,"fromKey":"value","record":%d,"to":%s'
                            % (model, slider, record + 1, value("uint32", new)))
        level = self.change(update, model, "level", value("uint32", old), value("uint32", new))
        back = self.entry(level, "update", '"object":%s,"key":"value","from":%s,"fromKey":"level","record":%d,"to":%s'
                          % (slider, model, record, value("uint32", new)))
        self.entry(back, "equal", '"object":%s,"key":"value","is":%s,"to":%s'
                   % (slider, value("uint32", new), value("uint32", new)))
        out = value("string", '"%d"' % new)
        links = '"object":%s,"key":"value","from":%s,"fromKey":"level","record":%d' % (text, model, record + 2)
        transform = self.entry(level, "transform", '%s,"transform":{"id":%d,"class":"LmToStringTransform"},"in":%s,"out":%s'
                               % (links, i + 1, value("uint32", new), out))
        shown = self.entry(transform, "update", '%s,"to":%s' % (links, out))
        self.change(shown, text, "value", value("string", '"%d"' % old), out)
        return 3

    def flush(self):
        sys.stdout.write("\n".join(self.lines) + "\n")
        self.lines.clear()


def main(arguments):
    if len(arguments) not in (2, 3):
        print(__doc__, file=sys.stderr)
        return 2
    changes = int(arguments[1])
    objects = int(arguments[2]) if len(arguments) == 3 else 10
    maker = Maker(objects)
    maker.begin()
    done = 0
    while done < changes:
        done += maker.drag(done // 3 % objects)
        if len(maker.lines) > 5000:
            maker.flush()
    maker.entry(0, "end", '"lost":0')
    maker.flush()
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
