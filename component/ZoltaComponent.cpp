// SPDX-License-Identifier: GPL-3.0-or-later
#include "component/ZoltaComponent.h"

#include <iterator>

namespace {

constexpr unsigned char DataVersion[4] = {'2', '6', '2', '0'};

// The order, and the terminator that counts as a 28th value, are the layout of every state saved
// so far.
constexpr const char* ParameterNames[] = {
    "fx_rackfx_prm_4",  "fx_rackfx_prm_3",  "fx_rackfx_prm_2",  "fx_rackfx_prm_1",
    "fx_rackfx_prm_8",  "fx_rackfx_prm_7",  "fx_rackfx_prm_6",  "fx_rackfx_prm_5",
    "fx_rackfx_prm_12", "fx_rackfx_prm_11", "fx_rackfx_prm_10", "fx_rackfx_prm_9",
    "fx_rackfx_prm_16", "fx_rackfx_prm_15", "fx_rackfx_prm_14", "fx_rackfx_prm_13",
    "fx_rackfx_prm_20", "fx_rackfx_prm_19", "fx_rackfx_prm_18", "fx_rackfx_prm_17",
    "fx_rackfx_prm_21", "fx_rackfx_prm_22", "fx_rackfx_prm_23", "fx_rackfx_prm_24",
    "fx_rackfx_prm_25", "fx_rackfx_prm_26", "fx_rackfx_prm_27", nullptr};

const std::list<const char*> ParameterList(std::begin(ParameterNames), std::end(ParameterNames));

static_assert(sizeof(ZoltaComponent) == sizeof(EffectComponent),
              "release() runs the destructor of EffectComponent alone");

} // namespace

const unsigned char* ZoltaComponent::getDataVersion() const { return DataVersion; }

std::list<const char*> ZoltaComponent::getParameterList(const unsigned char*) const
{
    return ParameterList;
}
