// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/scan/FolderWatch.h"

#include "device/library/scan/MusicDisks.h"
#include "device/library/store/FilePaths.h"
#include "device/library/store/FileSignature.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>

namespace trackwise {

namespace {
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

/// After events others are left to gather, so that a burst wakes us some times a second and not for each.
constexpr auto rest = 40ms;
/// How much longer than looking at the folders took, no matter how many there are, nothing is looked at.
constexpr int pollRest = 200;
constexpr auto fresh = 2s; ///< what was changed no longer ago, where nobody tells that a file is complete

bool isReadable(const QByteArray &folder)
{
    return access(folder.constData(), R_OK | X_OK) == 0;
}

bool isLink(const QByteArray &path)
{
    struct stat status = {};
    return lstat(path.constData(), &status) == 0 && S_ISLNK(status.st_mode);
}

/// A file with a second name was complete before it got that; a new one is still to be written.
bool isBeingMade(const QByteArray &path)
{
    struct stat status = {};
    return lstat(path.constData(), &status) == 0 && S_ISREG(status.st_mode) && status.st_nlink == 1;
}

QByteArray resolved(const QByteArray &path)
{
    const QByteArray real = resolvedPath(path);
    return real.isEmpty() ? path : real;
}

QByteArray folderAbove(const QByteArray &path)
{
    return path.left(std::max<qsizetype>(path.lastIndexOf('/'), 0));
}

bool isFresh(std::int64_t modified)
{
    const auto age = std::chrono::system_clock::now().time_since_epoch() - std::chrono::nanoseconds(modified);
    return std::chrono::abs(age) < fresh;
}

ScanPart folderScope(const QByteArray &folder)
{
    ScanPart part;
    part.addFolder(folder);
    return part;
}
} // namespace

FolderWatch::FolderWatch(ChangeHandler didChange, const WatchLimits &limits)
    : m_didChange(std::move(didChange))
    , m_pollInterval(limits.pollInterval)
    , m_folders(limits.mostWatches)
    , m_waker(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
    , m_changes(limits.stalledWriter)
    , m_thread([this] { run(); })
{}

FolderWatch::~FolderWatch()
{
    m_stop.request_stop();
    wake();
    m_thread.join();
    close(m_waker);
}

// --- What scans tell ---

void FolderWatch::willScan(const ScanPart &part, const std::vector<QByteArray> &musicFolders)
{
    {
        const std::scoped_lock lock(m_mutex);
        m_musicFolders = musicFolders;
    }
    if (part.isEverything()) {
        m_hasLinks = false;
        m_folders.beginAll();
    }
}

void FolderWatch::didRead(FoundFolder &folder)
{
    if (folder.hasLinks)
        m_hasLinks = true;
    const bool isPolled = m_folders.isPolled(folder.path);
    const std::scoped_lock lock(m_mutex);
    if (!isPolled && !m_changes.hasGrowing())
        return;
    for (FoundFile &file : folder.music) {
        const FileName name{folder.path, file.name};
        const bool isUncertain = isPolled && isFresh(file.signature.modified);
        if (isUncertain)
            m_changes.addGrowing(name, Clock::now());
        file.isUnfinished = isUncertain || m_changes.isGrowing(name);
    }
}

void FolderWatch::didFindGrowing(const FileName &file)
{
    {
        const std::scoped_lock lock(m_mutex);
        m_changes.addGrowing(file, Clock::now());
    }
    wake();
}

void FolderWatch::didScan(const ScanPart &part)
{
    if (part.isEverything()) {
        m_folders.endAll();
        std::vector<QByteArray> roots;
        {
            const std::scoped_lock lock(m_mutex);
            roots = m_musicFolders;
        }
        for (const QByteArray &root : roots) {
            const bool wasReadable = isReadable(root);
            m_folders.watchAbove(root);
            m_folders.watchAbove(resolved(root));
            if (!wasReadable)
                m_folders.awaitRoot(root);
            if (isReadable(root) != wasReadable) // it has come or gone between the two looks
                addEverything();
        }
    }
    wake();
}

void FolderWatch::clear()
{
    m_folders.clear();
    const std::scoped_lock lock(m_mutex);
    m_musicFolders.clear();
    m_changes.clear();
}

// --- The thread ---

void FolderWatch::run()
{
    std::optional<Time> nextPoll;
    std::optional<Time> restsUntil;
    while (!m_stop.stop_requested()) {
        if (!m_folders.hasPolled())
            nextPoll.reset();
        else if (!nextPoll)
            nextPoll = Clock::now() + m_pollInterval;
        std::optional<Time> until;
        {
            const std::scoped_lock lock(m_mutex);
            until = m_changes.nextDue();
        }
        for (const std::optional<Time> &time : {nextPoll, restsUntil}) {
            if (time)
                until = std::min(until.value_or(Time::max()), *time);
        }
        const Woken woken = sleep(until, !restsUntil);

        restsUntil.reset();
        if (woken.byEvents) {
            for (const FolderEvent &event : m_folders.takeEvents())
                handle(event);
            restsUntil = Clock::now() + rest;
        }
        if (woken.byMounts)
            handleMounts();
        if (const Time begin = Clock::now(); nextPoll && *nextPoll <= begin) {
            pollFolders();
            const auto took = Clock::now() - begin;
            nextPoll = Clock::now() + std::max<Clock::duration>(m_pollInterval, pollRest * took);
        }
        handOn();
    }
}

FolderWatch::Woken FolderWatch::sleep(std::optional<Time> until, bool isForEvents) const
{
    // Descriptors below zero are passed over.
    std::array<pollfd, 3> sources{{{m_waker, POLLIN, 0},
                                   {isForEvents ? m_folders.descriptor() : -1, POLLIN, 0},
                                   {m_mounts.descriptor(), POLLPRI, 0}}};
    int milliseconds = -1;
    if (until) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(*until - Clock::now());
        milliseconds = static_cast<int>(std::max(left, 0ms).count());
    }
    if (poll(sources.data(), sources.size(), milliseconds) <= 0)
        return {};
    eventfd_t ignored = 0;
    (void)eventfd_read(m_waker, &ignored);
    return {(sources[1].revents & POLLIN) != 0, (sources[2].revents & (POLLPRI | POLLERR)) != 0};
}

void FolderWatch::wake() const
{
    (void)eventfd_write(m_waker, 1);
}

void FolderWatch::handOn()
{
    ScanPart part;
    {
        const std::scoped_lock lock(m_mutex);
        part = m_changes.takeDue(Clock::now());
    }
    // A walk of a part follows no links, and would take what is behind them for gone.
    if (!part.trees().empty() && m_hasLinks)
        part = ScanPart::everything();
    if (!part.isEmpty())
        m_didChange(std::move(part));
}

// --- What happens ---

void FolderWatch::handle(const FolderEvent &event)
{
    if (event.folder.isEmpty() || event.is(IN_UNMOUNT | IN_Q_OVERFLOW)) {
        addEverything();
    } else if (event.name.isEmpty()) {
        // Of others the folder above them tells.
        if (event.is(IN_DELETE_SELF | IN_MOVE_SELF) && !m_folders.isKnown(folderAbove(event.folder)))
            addEverything();
    } else if (event.is(IN_ISDIR)) {
        handleFolderEvent(event);
    } else {
        handleFileEvent(event);
    }
}

void FolderWatch::handleFolderEvent(const FolderEvent &event)
{
    const QByteArray path = event.path();
    if (isPassedOver(event.name))
        return;
    const bool isKnown = m_folders.isKnown(path);
    if (event.is(IN_DELETE | IN_MOVED_FROM))
        addGone(path);
    else if (event.is(IN_CREATE | IN_MOVED_TO) || (event.is(IN_ATTRIB) && isReadable(path) != isKnown))
        addNew(path);
}

void FolderWatch::handleFileEvent(const FolderEvent &event)
{
    const FileName file{event.folder, event.name};
    const bool isComing = event.is(IN_CREATE | IN_MOVED_TO);
    const bool isGoing = event.is(IN_DELETE | IN_MOVED_FROM);
    if (!isOfInterest(event.name)) {
        const bool isMark = event.name == leaveOutMark && (isComing || isGoing);
        const bool isOfFolders =
            (isComing && isLink(file.path())) || (isGoing && m_folders.isKnown(file.path()));
        if (isMark || isOfFolders)
            addEverything();
        return;
    }
    const bool isNewlyMade = event.is(IN_CREATE) && isBeingMade(file.path());
    const std::scoped_lock lock(m_mutex);
    if (isNewlyMade || event.is(IN_MODIFY))
        m_changes.addGrowing(file, Clock::now());
    else if (!event.is(IN_ATTRIB) || !m_changes.isGrowing(file))
        m_changes.addChanged(file, Clock::now());
}

void FolderWatch::handleMounts()
{
    if (std::ranges::any_of(m_mounts.takeChangedPlaces(),
                            [this](const QByteArray &place) { return concernsLibrary(place); }))
        addEverything();
}

bool FolderWatch::concernsLibrary(const QByteArray &mountPlace) const
{
    const std::scoped_lock lock(m_mutex);
    // Links may lead anywhere, and so may the link that a folder is which is not there.
    return std::ranges::any_of(m_musicFolders, [&](const QByteArray &folder) {
        const QByteArray real = resolved(folder);
        return m_hasLinks || !isReadable(folder) || isWithin(real, mountPlace) || isWithin(mountPlace, real);
    });
}

void FolderWatch::pollFolders()
{
    for (const auto &[path, modified] : m_folders.polled()) {
        if (m_stop.stop_requested())
            return;
        pollFolder(path, modified);
    }
}

void FolderWatch::pollFolder(const QByteArray &path, std::int64_t modified)
{
    const std::optional<StatSignature> now = signatureAt(path);
    if (!now) {
        if (m_folders.isKnown(path)) // else it went with one above
            addGone(path);
        return;
    }
    if (now->modified == modified)
        return;
    ScanPart part = folderScope(path);
    const FolderWalk::Visitor visitor{
        [this](FoundFolder found) { // NOLINT(performance-unnecessary-value-param)
            if (found.hasLinks)
                addEverything();
            for (const QByteArray &name : found.folders) {
                if (!m_folders.isKnown(found.path + '/' + name))
                    addNew(found.path + '/' + name);
            }
        },
        [](const QByteArray &, int) {}, [this](const FoundFolder &folder) { m_folders.add(folder); },
        [&part](const QByteArray &folder, FileIdentity) { part.addTree(folder); }};
    (void)FolderWalk::walkPart(folderScope(path), visitor, m_stop.get_token());
    add(part);
}

void FolderWatch::add(const ScanPart &part)
{
    const std::scoped_lock lock(m_mutex);
    m_changes.add(part, Clock::now());
}

// What goes on in it is told from here on: its scan comes when there is a pause in that.
void FolderWatch::addNew(const QByteArray &folder)
{
    ScanPart part;
    part.addTree(folder);
    const FolderWalk::Visitor visitor{
        [this](const FoundFolder &found) { m_hasLinks = m_hasLinks || found.hasLinks; },
        [](const QByteArray &, int) {}, [this](const FoundFolder &found) { m_folders.add(found); }};
    (void)FolderWalk::walkPart(part, visitor, m_stop.get_token());
    part.addFolder(folderAbove(folder)); // which knows of a problem with it
    add(part);
}

void FolderWatch::addGone(const QByteArray &folder)
{
    m_folders.removeTree(folder);
    if (!m_folders.isKnown(folderAbove(folder))) {
        addEverything();
        return;
    }
    // With the folder above it, which tells that its disk is there.
    ScanPart part = folderScope(folderAbove(folder));
    part.addTree(folder);
    add(part);
}

} // namespace trackwise
