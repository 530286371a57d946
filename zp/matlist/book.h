// SPDX-License-Identifier: MIT
// What a drawing's material lists count: which drawn pieces belong to which row and how often,
// which marks point at them, which mark texts are taken. Right at any moment, also inside a command
// and after undo; what changed is read again when somebody asks, so that a change costs the same
// however long the lists are.
#pragma once

#include <map>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "dbapserv.h"
#include "zp/matlist/lists.h"
#include "zp/objects/edit.h"

namespace zp::matlist {

using Key = Adesk::LongPtr;  ///< an object of an open drawing

/// By the age of the objects.
struct Older {
    bool operator()(const AcDbObjectId& a, const AcDbObjectId& b) const {
        return a.handle() < b.handle();
    }
};
using Ids = std::set<AcDbObjectId, Older>;

class Book : public AcDbDatabaseReactor {
public:
    /// Of a drawing, made when it is first asked for; the drawing must be an open one.
    static Book& of(AcDbDatabase& drawing);
    /// To be called when a drawing goes away: its ids may come back as those of another one.
    static void forget(AcDbDatabase* drawing);
    static void forgetAll();

    /// A row, by its pieces.
    struct Row {
        AcDbObjectId list;  ///< dictionary that the record stands in
        int number = 0;     ///< its place in the list
        std::wstring marca;
        bool alive = false;        ///< its record is there
        long long quantidade = 0;  ///< sum over its pieces
        Ids pecas;                 ///< drawn ones, plates included
    };
    /// Null for a record that is none of a list.
    const Row* row(AcDbObjectId record);
    /// Records of the list in the order in which they were added.
    std::vector<AcDbObjectId> records(AcDbObjectId list);
    /// Number for the next record of the list.
    int nextNumber(AcDbObjectId list);
    /// A new record of a list, which was just written.
    void enter(AcDbObjectId list, int number, AcDbObjectId record);
    /// The letters that a mark begins with, "P" where there are none or it is empty, and the lowest
    /// number with which no row of any list has that mark and which is not in `given`.
    std::wstring freeMarca(const std::wstring& like, const std::vector<int>& given = {});
    /// A living row of any list that has this mark, other than `besides`; null when there is none.
    AcDbObjectId rowWithMarca(const std::wstring& marca, AcDbObjectId besides);

    /// What a piece counts for: members, times the insertions of the block that it stands in; a
    /// plate as often as its bar. 0 when it is erased or unknown.
    long long counts(AcDbObjectId peca);
    /// How often a block stands in the model, blocks inside others multiplied; 1 for a layout.
    long long insertions(AcDbObjectId block);
    /// Record of its row; null when it is in no list of this drawing.
    AcDbObjectId rowOf(AcDbObjectId peca);
    /// Record of the row that names this mark; null when none does.
    AcDbObjectId rowNaming(AcDbObjectId marca);
    /// Marks that point at the piece, in their age.
    std::vector<AcDbObjectId> marcasOf(AcDbObjectId peca);
    /// Living pieces of lists that may be the same member as this one.
    std::vector<AcDbObjectId> likely(const ZpObject& peca);

    /// Where the tip of a mark stands on its piece.
    struct Tip {
        int corner = -1;     ///< limit point 0 to 3; -1: none
        AcGePoint3d offset;  ///< in the piece's frame where it stands on no corner
    };
    struct Marca {
        AcDbObjectId peca;
        Tip tip;
        bool alive = false;
    };
    /// All that stand.
    std::vector<AcDbObjectId> marcas();
    /// Null for what is no mark.
    const Marca* marca(AcDbObjectId marca);
    /// From now on the mark's tip stands on its piece as it does in the drawing.
    void learnTip(AcDbObjectId marca);
    /// Where that is by now, world coordinates.
    static AcGePoint3d placeOf(const Tip& tip, const ZpObject& peca);

    /// What the user changed since the last time, in its order, and the quantities that rows had
    /// then. What undo changed is not among it.
    struct Changes {
        std::vector<AcDbObjectId> objects;  ///< pieces and marks, erased ones too
        std::map<AcDbObjectId, long long, Older> before;
        Ids fresh;     ///< rows that were added
        Ids returned;  ///< among the objects: those that were erased before
        Ids lists;     ///< of which a record was written
    };
    Changes takeChanges();
    /// Called when the user changed something, which may still be open for writing; null: nobody
    /// is.
    static void setListener(void (*listener)(AcDbDatabase& drawing));
    /// Changes made while one of these lives are not the user's. They are read at its end: where
    /// marks stand is learnt before anything else happens to their pieces.
    class OwnWork {
    public:
        explicit OwnWork(Book& book) : m_book(book) { ++m_book.m_own; }
        ~OwnWork() {
            m_book.refresh();
            --m_book.m_own;
        }
        OwnWork(const OwnWork&) = delete;
        OwnWork& operator=(const OwnWork&) = delete;

    private:
        Book& m_book;
    };
    bool ownWork() const { return m_own > 0; }

    explicit Book(AcDbDatabase& drawing);
    ~Book() override;
    Book(const Book&) = delete;
    Book& operator=(const Book&) = delete;

    void objectAppended(const AcDbDatabase*, const AcDbObject* o) override { changed(o, true); }
    void objectUnAppended(const AcDbDatabase*, const AcDbObject* o) override { changed(o); }
    void objectReAppended(const AcDbDatabase*, const AcDbObject* o) override { changed(o, true); }
    void objectModified(const AcDbDatabase*, const AcDbObject* o) override { changed(o); }
    void objectErased(const AcDbDatabase*, const AcDbObject* o, Adesk::Boolean erased) override {
        if (!erased && !o->isUndoing() && !ownWork()) m_returned.insert(o->objectId());
        changed(o);
    }
    void goodbye(const AcDbDatabase*) override { m_drawing = nullptr; }

private:
    struct Peca {
        AcDbObjectId id;
        AcDbObjectId row;
        AcDbObjectId block;
        long long own = 0;  ///< count without insertions; 0 when it is erased
        bool alive = false;
        std::size_t hash = 0;
        long long counted = 0;  ///< what its row's quantity holds of it
    };

    /// `appears`: it is new, or back.
    void changed(const AcDbObject* o, bool appears = false);
    void readAll();
    /// Reads what changed. What is open for writing at the moment stays as it was and is read
    /// later.
    void refresh();
    bool read(AcDbObjectId id);
    bool readPeca(AcDbObjectId id);
    bool readMarca(AcDbObjectId id);
    bool readRow(AcDbObjectId id);
    bool readInsertion(AcDbObjectId id);
    void markDirty(AcDbObjectId id);
    void knowAlike();
    void takeOut(Peca& peca);
    void putIn(Peca& peca);
    /// What listed pieces in blocks count.
    void countInsertions();
    void refreshInsides();
    long long timesOf(AcDbObjectId block, int depth);
    long long insertionsOf(AcDbObjectId block, int depth = 0);
    void takeText(AcDbObjectId record, const Row& row);
    void giveText(AcDbObjectId record, const Row& row);

    AcDbDatabase* m_drawing;
    int m_own = 0;
    bool m_first = false;  ///< all is being read, nothing of it is a change
    /// Which pieces are alike is known from the beginning in the drawing that is worked on, in
    /// another one when somebody asks.
    bool m_alikeKnown;
    std::unordered_map<Key, Peca> m_pecas;
    std::unordered_map<Key, Marca> m_marcas;
    std::unordered_map<Key, Row> m_rows;
    std::unordered_map<Key, std::map<int, AcDbObjectId>> m_lists;
    std::unordered_map<std::size_t, Ids> m_alike;  ///< living pieces of rows
    std::unordered_map<Key, std::vector<AcDbObjectId>> m_marcasOf;
    std::unordered_map<Key, AcDbObjectId> m_naming;  ///< rows by the marks that they name
    std::unordered_map<std::wstring, std::vector<AcDbObjectId>> m_texts;  ///< living rows by mark
    std::unordered_map<std::wstring, int> m_lowestFree;  ///< number, by the letters of marks

    struct Insertion {
        AcDbObjectId block;
        AcDbObjectId inside;
        bool alive = false;
        long long times = 1;  ///< more in an array
        bool operator==(const Insertion&) const = default;
    };
    std::unordered_map<Key, Insertion> m_insertions;
    std::unordered_map<Key, std::vector<AcDbObjectId>> m_pecasIn;      ///< by block, not a layout
    std::unordered_map<Key, long long> m_times;                        ///< insertions by block
    std::unordered_map<Key, std::vector<const Insertion*>> m_insides;  ///< living ones, by block
    bool m_insertionsChanged = true;
    bool m_insidesStale = true;

    std::vector<AcDbObjectId> m_dirty;
    std::unordered_set<Key> m_isDirty;
    std::vector<AcDbObjectId> m_byUser;
    std::unordered_set<Key> m_isByUser;
    std::map<AcDbObjectId, long long, Older> m_before;
    Ids m_fresh;
    Ids m_returned;
    Ids m_changedLists;
};

}  // namespace zp::matlist
