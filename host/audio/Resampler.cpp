// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/Resampler.h"

namespace {

constexpr long outputFrames = 1024;

} // namespace

Resampler::Resampler(int channels, double fromRate, double toRate, Quality quality)
    : m_channels(channels)
    , m_ratio(toRate / fromRate)
    , m_piece(static_cast<std::size_t>(channels * outputFrames))
{
    int error = 0;
    if (fromRate != toRate)
        m_state.reset(
            src_new(quality == Quality::Best ? SRC_SINC_BEST_QUALITY : SRC_SINC_MEDIUM_QUALITY,
                    channels, &error));
}

std::span<const float> Resampler::process(std::span<const float> samples, bool last)
{
    if (!m_state)
        return samples;
    m_output.clear();
    SRC_DATA data = {};
    data.data_in = samples.data();
    data.input_frames = static_cast<long>(samples.size()) / m_channels;
    data.end_of_input = last ? 1 : 0;
    while (convert(&data)) {
    }
    return m_output;
}

// Appends one piece; false when nothing more comes of the input.
bool Resampler::convert(SRC_DATA* data)
{
    data->data_out = m_piece.data();
    data->output_frames = outputFrames;
    data->src_ratio = m_ratio;
    if (src_process(m_state.get(), data) != 0)
        return false;
    data->data_in += data->input_frames_used * m_channels;
    data->input_frames -= data->input_frames_used;
    const long produced = data->output_frames_gen * m_channels;
    m_output.insert(m_output.end(), m_piece.begin(), m_piece.begin() + produced);
    return produced > 0 || data->input_frames_used > 0;
}
