// SPDX-License-Identifier: GPL-3.0-or-later
//
// bench_picker                  the picker over a library of 10 songs and over one of 100,000
// bench_picker show DATABASE    the picker over this library: how long until its rows stand, what flicking
//                               and jumping through all of it cost the main thread, and the memory in use
#include "device/library/MadeUpSongs.h"
#include "support/Figures.h"

#include "device/library/LinuxLibrary.h"
#include "picker/MediaPicker.h"
#include "support/ScriptedIndex.h"
#include "ui/Engine.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImage>
#include <QProcess>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickRenderControl>
#include <QQuickRenderTarget>
#include <QQuickWindow>
#include <QSettings>
#include <QTemporaryDir>
#include <QThread>

#include <algorithm>
#include <array>
#include <ctime>

using namespace trackwise;

namespace {

constexpr int framesPerFlick = 2000;
constexpr std::array stepsOfFlicks{120.0, 3000.0}; // points a frame: a brisk flick, and a dragged scroll bar

std::unique_ptr<LinuxLibrary> opened(const QString &database)
{
    static QSettings none(QStringLiteral("/dev/null"), QSettings::IniFormat);
    LibraryConfiguration configuration;
    configuration.databasePath = QFile::encodeName(database);
    configuration.musicFolders = {QByteArrayLiteral("/music")};
    auto library = LinuxLibrary::open(configuration, none);
    if (!library)
        qFatal("%s", qPrintable(library.failure().detail));
    return std::move(*library);
}

class NoScan : public LibraryScan
{
public:
    void start() override {}
    void cancel() override {}
    [[nodiscard]] ScanProgress progress() const override { return {}; }
};

double threadMilliseconds()
{
    timespec now = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

/// A sheet on a tablet whose frames are prepared as in the app; drawing them, which is another thread's work
/// there, is not counted.
class Stage
{
public:
    explicit Stage(MediaPicker &picker)
    {
        prepareEngine(m_engine);
        m_window.setGeometry(m_image.rect());
        m_window.contentItem()->setSize(m_image.size());
        m_window.setRenderTarget(QQuickRenderTarget::fromPaintDevice(&m_image));
        QQmlComponent component(&m_engine,
                                QUrl(QStringLiteral("qrc:/qt/qml/Trackwise/Picker/SongPickerView.qml")));
        m_view.reset(qobject_cast<QQuickItem *>(component.createWithInitialProperties(
            {{QStringLiteral("picker"), QVariant::fromValue(&picker)}})));
        if (!m_view)
            qFatal("%s", qPrintable(component.errorString()));
        m_view->setParentItem(m_window.contentItem());
        m_view->setSize(m_image.size());
    }
    /// Milliseconds of the main thread.
    double frame()
    {
        const double start = threadMilliseconds();
        QCoreApplication::processEvents();
        m_control.polishItems();
        m_control.beginFrame();
        m_control.sync();
        const double cost = threadMilliseconds() - start;
        m_control.render();
        m_control.endFrame();
        return cost;
    }
    [[nodiscard]] QQuickItem *list() const { return listBelow(m_view.get()); }

private:
    static QQuickItem *listBelow(QQuickItem *item)
    {
        if (item->inherits("QQuickListView") && item->isVisible() && item->property("isCurrent").toBool())
            return item;
        for (QQuickItem *child : item->childItems()) {
            if (QQuickItem *list = listBelow(child))
                return list;
        }
        return nullptr;
    }

    QQmlEngine m_engine;
    QQuickRenderControl m_control;
    QQuickWindow m_window{&m_control};
    QImage m_image{540, 820, QImage::Format_RGB32};
    std::unique_ptr<QQuickItem> m_view;
};

void flick(Stage &stage, double step)
{
    QQuickItem *list = stage.list();
    const double end = list->property("contentHeight").toDouble() - list->height();
    std::vector<double> costs;
    double place = 0;
    for (int frame = 0; frame < framesPerFlick && end > 0; ++frame) {
        place = place + step > end ? 0 : place + step;
        list->setProperty("contentY", list->property("originY").toDouble() + place);
        costs.push_back(stage.frame());
    }
    if (costs.empty())
        return;
    std::ranges::sort(costs);
    const std::string name = "flick_" + std::to_string(static_cast<int>(step)) + "_points_a_frame_";
    printFigure(name + "median", costs.at(costs.size() / 2), "ms");
    printFigure(name + "p99", costs.at(costs.size() * 99 / 100), "ms");
    printFigure(name + "worst", costs.back(), "ms");
}

int show(const QString &database)
{
    const auto library = opened(database);
    NoScan scan;
    ScriptedIndex index;
    MediaPicker picker(library->mediaLibrary(), library->browser(), scan, index);
    QElapsedTimer timer;
    timer.start();
    Stage stage(picker);
    while (!picker.songs()->isLoaded()) {
        (void)stage.frame();
        QThread::msleep(1); // leave the processor to the workers
    }
    (void)stage.frame();
    printFigure("until_rows_stand", static_cast<double>(timer.nsecsElapsed()) / 1e6, "ms");
    for (const double step : stepsOfFlicks)
        flick(stage, step);
    printFigure("memory", residentMegabytes(), "MB"); // with what is mapped of the database
    printFigure("private_memory", privateMegabytes(), "MB");
    return 0;
}

struct Memory
{
    double resident = 0;
    double ofItsOwn = 0;
};

Memory measureIn(const QTemporaryDir &folder, int count)
{
    const QString database = folder.filePath(QStringLiteral("%1.db").arg(count));
    writeMadeUpSongs(*opened(database)->store(), count);
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(), {QStringLiteral("show"), database});
    if (!process.waitForFinished(-1) || process.exitCode() != 0)
        qFatal("the picker over %d songs failed", count);
    Memory memory;
    for (const QByteArray &line : process.readAllStandardOutput().trimmed().split('\n')) {
        const QList<QByteArray> words = line.split(' ');
        const double value = words.at(1).toDouble();
        printFigure("picker_" + std::to_string(count) + '_' + words.at(0).toStdString(), value,
                    words.at(2).constData());
        if (words.at(0) == "memory")
            memory.resident = value;
        else if (words.at(0) == "private_memory")
            memory.ofItsOwn = value;
    }
    return memory;
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QQuickWindow::setSceneGraphBackend(QStringLiteral("software"));
    QGuiApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 3 && arguments.at(1) == QStringLiteral("show"))
        return show(arguments.at(2));
    const QTemporaryDir folder;
    const Memory small = measureIn(folder, 10);
    const Memory large = measureIn(folder, 100'000);
    printFigure("picker_memory_above_10_songs", large.resident - small.resident, "MB");
    printFigure("picker_private_memory_above_10_songs", large.ofItsOwn - small.ofItsOwn, "MB");
    return 0;
}
