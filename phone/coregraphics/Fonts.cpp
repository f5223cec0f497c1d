#include "phone/coregraphics/Fonts.h"

#include <fontconfig/fontconfig.h>
#include <pango/pangofc-fontmap.h>

#include <cstdio>
#include <cstdlib>

namespace phone {

namespace {

/// The phone's own configuration; neither the machine's nor the user's is read.
FcConfig* configuration() {
    FcConfig* config = FcConfigCreate();
    const auto* file = reinterpret_cast<const FcChar8*>(FONTS_CONFIGURATION);
    if (!FcConfigParseAndLoad(config, file, FcTrue) || !FcConfigBuildFonts(config)) {
        std::fprintf(stderr, "phone: no fonts: %s cannot be read\n", FONTS_CONFIGURATION);
        std::abort();
    }
    FcConfigSetCurrent(config); // before pango asks for one, which would read the machine's
    return config;
}

PangoContext* makeContext() {
    FcConfig* config = configuration();
    PangoFontMap* map = pango_cairo_font_map_new_for_font_type(CAIRO_FONT_TYPE_FT);
    pango_fc_font_map_set_config(PANGO_FC_FONT_MAP(map), config);
    FcConfigDestroy(config); // kept by the map

    PangoContext* context = pango_font_map_create_context(map);
    g_object_unref(map);
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(context, options);
    cairo_font_options_destroy(options);
    pango_context_set_round_glyph_positions(context, FALSE);
    pango_context_set_language(context, pango_language_from_string("en")); // not the machine's
    return context;
}

PangoWeight weightOf(Typeface::Weight weight) {
    switch (weight) {
    case Typeface::Weight::Thin:
        return PANGO_WEIGHT_THIN;
    case Typeface::Weight::Light:
        return PANGO_WEIGHT_LIGHT;
    case Typeface::Weight::Regular:
        return PANGO_WEIGHT_NORMAL;
    case Typeface::Weight::Medium:
        return PANGO_WEIGHT_MEDIUM;
    case Typeface::Weight::Bold:
        return PANGO_WEIGHT_SEMIBOLD; // the platform's bold is lighter than this family's
    }
    return PANGO_WEIGHT_NORMAL;
}

} // namespace

PangoContext* textContext() {
    static PangoContext* const context = makeContext(); // lives as long as the process
    return context;
}

FontDescription fontDescriptionOf(const Typeface& face) {
    FontDescription description(pango_font_description_new());
    pango_font_description_set_family_static(description.get(), "Inter");
    pango_font_description_set_weight(description.get(), weightOf(face.weight));
    pango_font_description_set_absolute_size(description.get(), face.size * PANGO_SCALE);
    return description;
}

} // namespace phone
