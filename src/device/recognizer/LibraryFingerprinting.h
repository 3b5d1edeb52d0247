// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/LibraryQuestions.h"
#include "device/recognizer/CatalogSurvey.h"
#include "device/recognizer/FingerprintWorker.h"
#include "platform/RecognitionIndex.h"

#include <QFileSystemWatcher>
#include <QThreadPool>
#include <QTimer>

#include <memory>
#include <optional>
#include <stop_token>
#include <vector>

namespace trackwise {

/// Listens to the songs of the library that the catalog of their sounds lacks, in worker processes, and takes
/// out of it those that are gone. What has been listened to is kept at once: nothing is done twice, however
/// the program ends. Other processes may write the catalog while there is nothing to do, or nothing may be
/// done; what they do meanwhile counts. Main thread.
class LibraryFingerprinting final : public RecognitionIndex
{
    Q_OBJECT

public:
    /// How workers begin, and how many there are at the same time.
    struct Workers
    {
        QString program;
        QStringList arguments;
        int count = 1;
        /// Whether others who want to write the catalog may do so first; else those are asked to let it go.
        bool isPatient = true;

        /// Of this program: as many as there are cores, in the background one less.
        [[nodiscard]] static Workers ofThisProgram(Effort effort);
    };

    /// @p folder is where the catalog is kept, see catalogFolder(). @p library must outlive this object.
    LibraryFingerprinting(const LibraryQuestions &library, QByteArray folder, Workers workers,
                          QObject *parent = nullptr);
    /// Ends the workers, and waits for the song that is being written.
    ~LibraryFingerprinting() override;

    /// Finds out what is to be done, and does it: to be called at the start, when songs came, went or
    /// changed, and when what could not be read may be readable.
    void lookForWork();
    /// Whether nothing is to be done now for the sake of power, and whether the library may be used at all.
    void setConditions(bool isSavingPower, bool isAllowed);
    /// Something was not recognised, and state() says so for as long as songs are left.
    void noteMiss();

    /// Songs that could not be listened to, and will be tried again.
    [[nodiscard]] qsizetype songsLeftOut() const { return m_songs.leftOut; }
    [[nodiscard]] bool isPaused() const { return m_holds.byUser; }

    [[nodiscard]] RecognitionIndexState state() const override;
    void setPaused(bool isPaused) override;
    void rebuild() override;
    void clear() override;

Q_SIGNALS:
    /// There is nothing more to do, or, as state() tells, nothing can be done.
    void finished();

private:
    struct Written;
    struct Listener;
    using Beginning = CatalogSurvey::Beginning;

    [[nodiscard]] bool mayWork() const;
    void look(Beginning beginning);
    void takeSurvey(Beginning beginning, CatalogSurvey survey);
    void advance();
    void catalogDidChange();
    [[nodiscard]] bool isWantedByOthers() const;
    void beginTurnOfOthers();
    void letOthersWrite();
    void lookAgain();
    void begin(Listener &listener);
    void take(Listener &listener, const Result<HeardSong> &heard);
    void write(fingerprint::CatalogSong song, std::vector<fingerprint::Peak> peaks);
    void tidyUp();
    void rest();
    void endWorkers();
    void giveUp(const QString &why);
    void tell();

    const LibraryQuestions &m_library;
    QByteArray m_folder;
    Workers m_workers;
    std::shared_ptr<fingerprint::CatalogStore> m_store; ///< while there is work: nobody else can write then
    std::vector<Listener *> m_listeners;                ///< children of this
    struct
    {
        std::vector<SongSound> todo; ///< the next one last
        qsizetype done = 0;
        qsizetype total = 0;
        qsizetype leftOut = 0;
        int beingWritten = 0;
        qint64 bytes = 0;
        bool haveMissed = false;
    } m_songs;
    struct
    {
        bool byUser = false;
        bool savingPower = false;
        bool notAllowed = false;
        QString trouble; ///< empty: none
    } m_holds;
    struct
    {
        bool isRunning = false;
        std::optional<Beginning> next; ///< once that is over
        std::optional<Beginning> due;  ///< once we may write the catalog
        bool isUntidy = false;         ///< something has been written since it was tidied up
        bool isTidying = false;
    } m_looking;
    struct
    {
        QFileSystemWatcher notes;
        QTimer end; ///< of their turn
        std::stop_source begins;
    } m_others; ///< who want to write the catalog
    QTimer m_telling;
    struct
    {
        QThreadPool reading; ///< looks up songs
        QThreadPool writing;
        QThreadPool tidying;
    } m_pools; ///< of one thread each
};

} // namespace trackwise
