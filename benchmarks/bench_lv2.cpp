// SPDX-License-Identifier: GPL-3.0-or-later
// What equalizers cost as LV2 plug-ins: each runs over the same noise in blocks of 256 stereo
// samples with its bands at work; a plug-in of one channel runs twice. Prints medians of five
// turns, which take turns with one another, as a table in Markdown. Processor time, so that a busy
// machine changes little.
//
// "heard" is at how many of the bands' frequencies the sound is raised or lowered by 1 dB at least,
// so that nothing is compared with a plug-in that does nothing.
#include <lilv/lilv.h>
#include <lv2/atom/atom.h>
#include <lv2/buf-size/buf-size.h>
#include <lv2/options/options.h>
#include <lv2/urid/urid.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <map>
#include <memory>
#include <numbers>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace {

constexpr std::size_t blockLength = 256;
constexpr std::size_t blocksOfNoise = 64;
constexpr int blocksInTurn = 20000;
constexpr int warmUp = 400;
constexpr std::size_t turns = 5;
constexpr double rate = 48000.0;
constexpr std::size_t atomSize = 65536;

struct Contender
{
    const char* name;
    const char* uri;
    std::size_t channels;
    std::vector<double> frequencies; ///< of its bands
    const char* settings;            ///< "symbol=number ..."
};

const std::vector<double> six = {60, 200, 700, 2000, 6000, 14000};
const std::vector<Contender> contenders = {
    {"Zolta Equalizer", "urn:zolta:equalizer", 2, six,
     "low_frequency=60 low_gain=6 "
     "middle_1_frequency=200 middle_1_gain=-6 middle_1_quality=2 "
     "middle_2_frequency=700 middle_2_gain=6 middle_2_quality=2 "
     "middle_3_frequency=2000 middle_3_gain=-6 middle_3_quality=2 "
     "middle_4_frequency=6000 middle_4_gain=6 middle_4_quality=2 "
     "high_frequency=14000 high_gain=-6"},
    {"x42 fil4", "http://gareus.org/oss/lv2/fil4#stereo", 2, six,
     "LSfreq=60 LSgain=6 freq1=200 gain1=-6 q1=0.7 freq2=700 gain2=6 q2=0.7 "
     "freq3=2000 gain3=-6 q3=0.7 freq4=6000 gain4=6 q4=0.7 HSfreq=14000 HSgain=-6"},
    {"LSP parametric x16", "http://lsp-plug.in/plugins/lv2/para_equalizer_x16_stereo", 2, six,
     "ft_0=5 f_0=60 g_0=2 ft_1=1 f_1=200 g_1=0.5 q_1=2 ft_2=1 f_2=700 g_2=2 q_2=2 "
     "ft_3=1 f_3=2000 g_3=0.5 q_3=2 ft_4=1 f_4=6000 g_4=2 q_4=2 ft_5=3 f_5=14000 g_5=0.5"},
    {"Calf 8 band", "http://calf.sourceforge.net/plugins/Equalizer8Band", 2, six,
     "ls_active=1 ls_freq=60 ls_level=2 p1_active=1 p1_freq=200 p1_level=0.5 p1_q=2 "
     "p2_active=1 p2_freq=700 p2_level=2 p2_q=2 p3_active=1 p3_freq=2000 p3_level=0.5 p3_q=2 "
     "p4_active=1 p4_freq=6000 p4_level=2 p4_q=2 hs_active=1 hs_freq=14000 hs_level=0.5"},
    {"Ardour a-eq", "urn:ardour:a-eq", 1, six,
     "freql=60 gl=6 freq1=200 g1=-6 bw1=0.7 freq2=700 g2=6 bw2=0.7 freq3=2000 g3=-6 bw3=0.7 "
     "freq4=6000 g4=6 bw4=0.7 freqh=14000 gh=-6"},
    {"ZamEQ2",
     "urn:zamaudio:ZamEQ2",
     1,
     {60, 700, 2000, 14000},
     "fl=60 boostl=6 f1=700 boost1=-6 f2=2000 boost2=6 fh=14000 boosth=-6"},
};

/// The numbers of URIs, and what hosts tell of their blocks.
class Host
{
public:
    Host()
    {
        for (const auto& [uri, value] : {std::pair(LV2_BUF_SIZE__minBlockLength, &m_blockLength),
                                         {LV2_BUF_SIZE__maxBlockLength, &m_blockLength},
                                         {LV2_BUF_SIZE__nominalBlockLength, &m_blockLength},
                                         {LV2_BUF_SIZE__sequenceSize, &m_atomSize}})
            m_options.push_back(
                {LV2_OPTIONS_INSTANCE, 0, idOf(uri), sizeof(int), idOf(LV2_ATOM__Int), value});
        m_options.push_back({});
        m_optionsFeature.data = m_options.data();
    }
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    LV2_URID idOf(const std::string& uri)
    {
        return m_ids.try_emplace(uri, static_cast<LV2_URID>(m_ids.size() + 1)).first->second;
    }
    const LV2_Feature* const* features() const { return m_features.data(); }

private:
    static LV2_URID map(LV2_URID_Map_Handle host, const char* uri)
    {
        return static_cast<Host*>(host)->idOf(uri);
    }
    static const char* unmap(LV2_URID_Unmap_Handle host, LV2_URID id)
    {
        for (const auto& [uri, number] : static_cast<Host*>(host)->m_ids) {
            if (number == id)
                return uri.c_str();
        }
        return nullptr;
    }

    std::map<std::string, LV2_URID> m_ids;
    int m_blockLength = blockLength;
    int m_atomSize = atomSize;
    LV2_URID_Map m_map{this, map};
    LV2_URID_Unmap m_unmap{this, unmap};
    std::vector<LV2_Options_Option> m_options;
    LV2_Feature m_mapFeature{LV2_URID__map, &m_map};
    LV2_Feature m_unmapFeature{LV2_URID__unmap, &m_unmap};
    LV2_Feature m_optionsFeature{LV2_OPTIONS__options, nullptr};
    LV2_Feature m_boundedFeature{LV2_BUF_SIZE__boundedBlockLength, nullptr};
    std::array<const LV2_Feature*, 5> m_features{&m_mapFeature, &m_unmapFeature, &m_optionsFeature,
                                                 &m_boundedFeature, nullptr};
};

std::map<std::string, float> parse(const char* settings)
{
    std::map<std::string, float> values;
    std::istringstream words(settings);
    for (std::string word; words >> word;)
        values[word.substr(0, word.find('='))] = std::stof(word.substr(word.find('=') + 1));
    return values;
}

/// One instance with a buffer at every port.
class Instance
{
public:
    Instance(LilvWorld* world, const LilvPlugin* plugin, const char* settings, Host* host)
        : m_plugin(plugin)
        , m_instance(lilv_plugin_instantiate(plugin, rate, host->features()))
    {
        if (!m_instance)
            return;
        connectAll(world, parse(settings), host->idOf(LV2_ATOM__Sequence));
        lilv_instance_activate(m_instance);
    }
    ~Instance()
    {
        if (m_instance)
            lilv_instance_free(m_instance);
    }
    Instance(const Instance&) = delete;
    Instance& operator=(const Instance&) = delete;

    bool isUsable() const { return m_instance && m_unknown.empty(); }
    const std::string& unknownSymbol() const { return m_unknown; }
    /// Processes one block; \a inputs has one pointer a channel.
    void run(const float* const* inputs)
    {
        for (std::size_t i = 0; i < m_inputs.size(); ++i)
            lilv_instance_connect_port(m_instance, m_inputs[i], const_cast<float*>(inputs[i]));
        for (auto& [atom, isInput] : m_atoms)
            reset(atom.get(), isInput);
        lilv_instance_run(m_instance, blockLength);
    }
    const std::vector<float>& firstOutput() const { return m_buffers[m_firstOutput]; }

private:
    using Atom = std::unique_ptr<LV2_Atom_Sequence, decltype(&std::free)>;

    void connectAll(LilvWorld* world, std::map<std::string, float> settings, LV2_URID sequence)
    {
        const auto node = [world](const char* uri) {
            return std::unique_ptr<LilvNode, decltype(&lilv_node_free)>(lilv_new_uri(world, uri),
                                                                        lilv_node_free);
        };
        const auto input = node(LV2_CORE__InputPort);
        const auto audio = node(LV2_CORE__AudioPort);
        const auto control = node(LV2_CORE__ControlPort);
        const std::uint32_t count = lilv_plugin_get_num_ports(m_plugin);
        std::vector<float> defaults(count);
        lilv_plugin_get_port_ranges_float(m_plugin, nullptr, nullptr, defaults.data());
        m_buffers.resize(count);
        m_sequence = sequence;
        for (std::uint32_t i = 0; i < count; ++i) {
            const LilvPort* port = lilv_plugin_get_port_by_index(m_plugin, i);
            const bool isInput = lilv_port_is_a(m_plugin, port, input.get());
            if (lilv_port_is_a(m_plugin, port, audio.get()))
                connectAudio(i, isInput);
            else if (lilv_port_is_a(m_plugin, port, control.get()))
                connectControl(i, port, defaults[i], &settings);
            else
                connectAtom(i, isInput);
        }
        if (!settings.empty())
            m_unknown = settings.begin()->first;
    }
    void connectAudio(std::uint32_t index, bool isInput)
    {
        m_buffers[index].resize(blockLength);
        lilv_instance_connect_port(m_instance, index, m_buffers[index].data());
        if (isInput)
            m_inputs.push_back(index);
        else if (m_firstOutput == 0)
            m_firstOutput = index;
    }
    void connectControl(std::uint32_t index, const LilvPort* port, float value,
                        std::map<std::string, float>* settings)
    {
        const auto set = settings->find(lilv_node_as_string(lilv_port_get_symbol(m_plugin, port)));
        m_buffers[index] = {std::isnan(value) ? 0.0F : value};
        if (set != settings->end()) {
            m_buffers[index] = {set->second};
            settings->erase(set);
        }
        lilv_instance_connect_port(m_instance, index, m_buffers[index].data());
    }
    void connectAtom(std::uint32_t index, bool isInput)
    {
        Atom atom(static_cast<LV2_Atom_Sequence*>(std::calloc(1, atomSize)), &std::free);
        lilv_instance_connect_port(m_instance, index, atom.get());
        m_atoms.emplace_back(std::move(atom), isInput);
    }
    void reset(LV2_Atom_Sequence* atom, bool isInput) const
    {
        atom->atom.type = isInput ? m_sequence : 0;
        atom->atom.size = isInput ? sizeof(LV2_Atom_Sequence_Body) : atomSize - sizeof(LV2_Atom);
        atom->body = {};
    }

    const LilvPlugin* m_plugin;
    LilvInstance* m_instance;
    LV2_URID m_sequence = 0;
    std::vector<std::vector<float>> m_buffers;
    std::vector<std::uint32_t> m_inputs;
    std::size_t m_firstOutput = 0;
    std::vector<std::pair<Atom, bool>> m_atoms;
    std::string m_unknown;
};

/// The instances that make two channels of one contender.
struct Racer
{
    const Contender* contender;
    std::vector<std::unique_ptr<Instance>> instances;
    std::vector<double> microseconds; ///< a block, by turn

    void run(const float* left, const float* right)
    {
        const std::array<const float*, 2> channels = {left, right};
        for (std::size_t i = 0; i < instances.size(); ++i)
            instances[i]->run(channels.data() + i);
    }
};

std::vector<float> noise(std::size_t length)
{
    std::minstd_rand generator(7);
    std::uniform_real_distribution<float> sample(-0.25F, 0.25F);
    std::vector<float> samples(length);
    std::generate(samples.begin(), samples.end(), [&] { return sample(generator); });
    return samples;
}

double processorSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

void runNoise(Racer* racer, const std::vector<float>& samples, int blocks)
{
    const std::size_t half = samples.size() / 2;
    for (int i = 0; i < blocks; ++i) {
        const std::size_t first = static_cast<std::size_t>(i) % blocksOfNoise * blockLength;
        racer->run(samples.data() + first, samples.data() + half + first);
    }
}

double medianOf(std::vector<double> values)
{
    std::nth_element(values.begin(), values.begin() + turns / 2, values.end());
    return values[turns / 2];
}

/// At how many of its bands' frequencies the response of the first channel is not flat.
std::size_t heardBands(Racer* racer)
{
    std::vector<float> block(blockLength);
    std::vector<float> response;
    for (int i = -warmUp; i < 64; ++i) {
        block.front() = i == 0 ? 1.0F : 0.0F;
        racer->run(block.data(), block.data());
        const std::vector<float>& out = racer->instances.front()->firstOutput();
        if (i >= 0)
            response.insert(response.end(), out.begin(), out.end());
    }
    const auto isChanged = [&response](double frequency) {
        std::complex<double> sum = 0.0;
        for (std::size_t i = 0; i < response.size(); ++i)
            sum += double{response[i]} * std::polar(1.0, -2.0 * std::numbers::pi * frequency /
                                                             rate * static_cast<double>(i));
        return std::abs(20.0 * std::log10(std::abs(sum))) >= 1.0;
    };
    const std::vector<double>& bands = racer->contender->frequencies;
    return static_cast<std::size_t>(std::count_if(bands.begin(), bands.end(), isChanged));
}

std::vector<Racer> load(LilvWorld* world, Host* host)
{
    std::vector<Racer> racers;
    for (const Contender& contender : contenders) {
        LilvNode* uri = lilv_new_uri(world, contender.uri);
        const LilvPlugin* plugin = lilv_plugins_get_by_uri(lilv_world_get_all_plugins(world), uri);
        lilv_node_free(uri);
        Racer racer{&contender, {}, {}};
        for (std::size_t i = 0; plugin && i < 2 / contender.channels; ++i)
            racer.instances.push_back(
                std::make_unique<Instance>(world, plugin, contender.settings, host));
        if (!plugin)
            std::fprintf(stderr, "%s is not installed.\n", contender.name);
        else if (!racer.instances.front()->isUsable())
            std::fprintf(stderr, "%s cannot be used, or has no port %s.\n", contender.name,
                         racer.instances.front()->unknownSymbol().c_str());
        else
            racers.push_back(std::move(racer));
    }
    return racers;
}

void print(std::vector<Racer>* racers)
{
    std::puts("| plug-in | bands | heard | µs a block | µs a band | against ours |\n"
              "|---|---|---|---|---|---|");
    const double ours = medianOf(racers->front().microseconds);
    for (Racer& racer : *racers) {
        const std::size_t bands = racer.contender->frequencies.size();
        const double median = medianOf(racer.microseconds);
        std::printf("| %s | %zu | %zu | %.2f | %.2f | × %.2f |\n", racer.contender->name, bands,
                    heardBands(&racer), median, median / static_cast<double>(bands), median / ours);
    }
}

} // namespace

int main()
{
    setenv("LV2_PATH", ZOLTA_LV2_FOLDER ":/usr/lib/lv2", 1);
    const std::unique_ptr<LilvWorld, decltype(&lilv_world_free)> world(lilv_world_new(),
                                                                       lilv_world_free);
    lilv_world_load_all(world.get());
    Host host;
    std::vector<Racer> racers = load(world.get(), &host);
    if (racers.empty())
        return 1;
    const std::vector<float> samples = noise(2 * blocksOfNoise * blockLength);
    for (std::size_t turn = 0; turn < turns; ++turn) {
        for (Racer& racer : racers) {
            runNoise(&racer, samples, warmUp);
            const double start = processorSeconds();
            runNoise(&racer, samples, blocksInTurn);
            racer.microseconds.push_back((processorSeconds() - start) * 1e6 / blocksInTurn);
        }
    }
    print(&racers);
    return 0;
}
