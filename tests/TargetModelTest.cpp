#include "TargetModel.h"

#include "Testing.h"

using namespace vemo::tmodel;

template <typename Model, typename T, typename Value>
static void set(void (Model::*setter)(T), Value value) {
    (Model().*setter)(static_cast<T>(value));
}

TEST(TargetModel, StartsEmpty) {
    const TargetModel tm;
    EXPECT_EQ(dump(tm),
              "Target model (v<unknown>(1)):\n  Family: <unknown>(7)\n  Target Style Models:\n"
              "Local memory model: <null>\n");
    EXPECT_FALSE(tm.has_global_interconnect_model() || tm.has_delay_model()
                 || tm.has_family_model());
    const std::string local_mem = dump(LocalMemModel());
    EXPECT_EQ(local_mem.substr(local_mem.rfind('\n')),
              "\nLocal memory fmax degradation model: <null>");
}

TEST(TargetModel, NamesFamilies) {
    // By key: the value, and the names for display and in the dump.
    const struct {
        const char* key;
        int value;
        const char* name;
        const char* dumped;
    } cases[] = {
        {"peltraa", 0, "Peltra A", "peltraa"},      {"peltrab", 1, "Peltra B", "peltrab"},
        {"peltrac", 2, "Peltra C", "<unknown>(2)"}, {"osminc", 3, "Osmin C", "osminc"},
        {"osminb", 4, "Osmin B", "osminb"},         {"duvelb", 5, "Duvel B", "duvelb"},
        {"duvelclx", 6, "Duvel C LX", "duvelclx"},
    };
    TargetModel tm;
    for (const auto& family : cases) {
        tm.family = find_target_family(family.key);
        EXPECT_EQ(static_cast<int>(tm.family), family.value) << family.key;
        EXPECT_STREQ(tm.get_family_str(), family.name);
        EXPECT_EQ(dump(tm.family), family.dumped);
    }
    EXPECT_EQ(find_target_family("PELTRAA"), TargetFamily::TypeCount);
    EXPECT_EQ(dump(static_cast<TargetFamily>(-1)), "<unknown>(-1)");
}

TEST(TargetModelDeathTest, PartsMustBeThere) {
    const auto expect_missing = [](auto& tm, auto& mem) {
        expect_aborts({
            {"m_local_mem_model != __null", [&] { tm.get_local_mem_model(); }},
            {"m_global_interconnect_model != __null", [&] { tm.get_global_interconnect_model(); }},
            {"m_delay_model != __null", [&] { tm.get_delay_model(); }},
            {"m_family_model != __null", [&] { tm.get_family_model(); }},
            {"m_fmax_degradation_model != __null", [&] { mem.get_fmax_degradation_model(); }},
        });
    };
    TargetModel tm;
    LocalMemModel mem;
    expect_missing(tm, mem);
    expect_missing(std::as_const(tm), std::as_const(mem));
    expect_aborts({
        {"false && \"Could not find string for family enum\"", [&] { tm.get_family_str(); }},
        {"local_mem_model != __null", [&] { tm.set_local_mem_model(nullptr); }},
        {"global_interconnect_model != __null", [&] { tm.set_global_interconnect_model(nullptr); }},
        {"delay_model != __null", [&] { tm.set_delay_model(nullptr); }},
        {"family_model != __null", [&] { tm.set_family_model(nullptr); }},
        {"fmax_degradation_model != __null", [&] { mem.set_fmax_degradation_model(nullptr); }},
    });
}

TEST(TargetModelDeathTest, FiguresAreInRange) {
    using Mem = LocalMemModel;
    using Fmax = LocalMemFmaxDegradationModel;
    using Interconnect = GlobalInterconnectModel;
    const auto expect_refused = [](const char* condition, auto value, auto... setters) {
        (expect_aborts({{condition, [&] { set(setters, value); }}}), ...);
    };
    const char* is_flag = "supports_old_data == 0 || supports_old_data == 1";
    expect_refused("mem_block_width > 0", 0, &Mem::set_single_port_mem_block_width,
                   &Mem::set_dual_port_mem_block_width);
    expect_refused("mem_block_depth > 0", 0, &Mem::set_single_port_mem_block_depth,
                   &Mem::set_dual_port_mem_block_depth);
    expect_refused("cache_size_n > 0", 0, &Mem::set_bursting_lsu_cache_size_n);
    expect_refused(is_flag, 2, &Mem::set_single_port_mem_block_supports_rdw_mode_old_data,
                   &Mem::set_dual_port_mem_block_supports_rdw_mode_old_data);
    for (const float bad : {-0.5f, NAN}) {
        expect_refused("group_per_all_rams >= 0.0f", bad, &Fmax::set_group_per_all_rams);
        expect_refused("total_per_all_rams >= 0.0f", bad, &Fmax::set_total_per_all_rams);
        expect_refused("per_coalescing_width >= 0.0f", bad, &Fmax::set_per_coalescing_width);
        expect_refused("per_log2_num_banks >= 0.0f", bad, &Fmax::set_per_log2_num_banks);
        expect_refused("per_port_fanin >= 0.0f", bad, &Fmax::set_per_port_fanin);
        expect_refused(
            "a >= 0.0f", bad, &Interconnect::set_arb2_data_pipe_spacing,
            &Interconnect::set_arb2_data_pipe_min_depth, &Interconnect::set_arb2_stall_pipe_spacing,
            &Interconnect::set_arb2_stall_pipe_min_depth, &Interconnect::set_arb2_pipe_at_output,
            &Interconnect::set_arb2_test_add_latency);
    }
}
