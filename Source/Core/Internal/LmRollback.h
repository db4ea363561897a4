// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmRollback_h
#define LmRollback_h

// Undoes one step of several when a later one runs out of memory. Not part of the interface.
//
//     theList.splice(theList.end(), theNode);
//     LmRollback theRollback([&] { theList.pop_back(); });
//     theOther.push_back(theItem); // may throw std::bad_alloc
//     theRollback.Commit();
//
// What is called must not throw itself.
template <typename Undo>
class [[nodiscard]] LmRollback
{
public:
    explicit LmRollback(const Undo& theUndo)
        : mUndo(theUndo)
    {
    }

    ~LmRollback()
    {
        if (!mIsCommitted) {
            mUndo();
        }
    }

    LmRollback(const LmRollback&) = delete;
    LmRollback& operator=(const LmRollback&) = delete;

    // All steps have been made: the destructor does nothing any more.
    void Commit() { mIsCommitted = true; }

private:
    Undo mUndo;
    bool mIsCommitted = false;
};

#endif
