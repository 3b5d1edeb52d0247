// SPDX-License-Identifier: GPL-3.0-or-later
//
// recognition_sessions CATALOG CLIPS LOOKS [without]: listens to each clip that CLIPS/clips.csv names as to a
// microphone, a quarter of a second at a time, and looks for its song each time from 1.5 s on; with
// "without", to those of songs of the catalog, which is then without the song at hand. A line for each look
// goes to the file LOOKS, with tabs: the clip, the seconds heard, the song or NONE, the score, and the
// milliseconds it took. The memory that listening takes goes to standard output.
#include "fingerprint/Matcher.h"
#include "recognition/SoundFile.h"
#include "support/Figures.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <sstream>

using namespace trackwise;
using namespace trackwise::fingerprint;

namespace {

constexpr std::size_t step = sampleRateHz / 4;
constexpr std::size_t firstLook = 6 * step;

struct Clip
{
    std::string file;
    std::string track;
    std::string role;
};

std::vector<Clip> clipsOf(const std::filesystem::path &folder)
{
    std::vector<Clip> clips;
    std::ifstream table(folder / "clips.csv");
    std::string line;
    for (std::getline(table, line); std::getline(table, line);) {
        std::istringstream columns(line);
        Clip clip;
        std::string condition;
        std::getline(columns, clip.file, ',');
        std::getline(columns, condition, ',');
        std::getline(columns, clip.track, ',');
        std::getline(columns, clip.role, ',');
        clips.push_back(clip);
    }
    return clips;
}

class Listener
{
public:
    Listener(Segment::Ptr segment, std::FILE *looks)
        : m_segment(std::move(segment))
        , m_looks(looks)
    {
        for (SongNumber song = 0; song < m_segment->songCount(); ++song)
            m_titles.push_back(m_segment->song(song).title);
    }

    void listen(const Clip &clip, std::span<const float> sound, bool withItsSong)
    {
        Catalog::Part part{m_segment, {}, {}};
        for (std::size_t song = 0; !withItsSong && song < m_titles.size(); ++song)
            part.removed.push_back(m_titles[song] == clip.track);
        const Catalog catalog({part});
        const double idle = privateMegabytes();
        Matcher matcher(catalog);
        for (std::size_t heard = step; heard <= sound.size(); heard += step) {
            matcher.push(sound.subspan(heard - step, step));
            if (heard >= firstLook)
                look(matcher, clip, heard);
        }
        m_memory = std::max(m_memory, privateMegabytes() - idle);
    }
    [[nodiscard]] double memory() const { return m_memory; }

private:
    void look(Matcher &matcher, const Clip &clip, std::size_t heard)
    {
        const double start = threadCpuSeconds();
        const auto match = matcher.look(Query::Ending::Open);
        const double milliseconds = (threadCpuSeconds() - start) * 1000;
        const std::string &song = match ? m_titles[match->song] : m_none;
        std::fprintf(m_looks, "%s\t%.2f\t%s\t%.3f\t%.3f\n", clip.file.c_str(), double(heard) / sampleRateHz,
                     song.empty() ? "made-up" : song.c_str(), double(match ? match->score : 0), milliseconds);
    }

    Segment::Ptr m_segment;
    std::vector<std::string> m_titles;
    const std::string m_none = "NONE";
    std::FILE *m_looks;
    double m_memory = 0;
};

} // namespace

int main(int count, char **arguments)
{
    const bool withItsSong = count == 4;
    if (!withItsSong && !(count == 5 && std::strcmp(arguments[4], "without") == 0)) {
        std::fprintf(stderr, "usage: recognition_sessions CATALOG CLIPS LOOKS [without]\n");
        return 2;
    }
    const auto segment = Segment::ofFile(arguments[1]);
    std::FILE *looks = std::fopen(arguments[3], "w");
    if (looks == nullptr || !std::holds_alternative<Segment::Ptr>(segment)) {
        std::fprintf(stderr, "recognition_sessions: cannot open %s\n", arguments[looks == nullptr ? 3 : 1]);
        return 1;
    }
    Listener listener(std::get<Segment::Ptr>(segment), looks);
    for (const Clip &clip : clipsOf(arguments[2])) {
        if (withItsSong || clip.role == "indexed")
            listener.listen(clip, bench::soundOf(arguments[2] + ("/" + clip.file)), withItsSong);
    }
    printFigure("memory", listener.memory(), "MB");
    return std::fclose(looks) == 0 ? 0 : 1;
}
