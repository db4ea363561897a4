// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmThreadCheck_h
#define LmThreadCheck_h

// Notices a call from another thread than the one that used the library first, and reports the first one in
// the process. It changes nothing else: the library is for one thread. Not part of the interface.
//
// Stands where stores are made, set, observed and bound. A thread that has been seen costs three
// instructions.
class LmThreadCheck
{
public:
    static void Check()
    {
        if (!sIsSeen) {
            See();
        }
    }

private:
    [[gnu::cold]] static void See();

    // One byte for each thread, which a library that is loaded later finds room for too.
    [[gnu::tls_model("initial-exec")]] static inline thread_local bool sIsSeen = false;
};

#endif
