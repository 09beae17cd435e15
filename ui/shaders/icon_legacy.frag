// Draws the glyph of an icon from its atlas.
// disabled: blends towards a light grey; white parts stay white.
// highlight: blends towards highlightColor and fades white parts out.
// The result is premultiplied.
uniform lowp float     qt_Opacity;
uniform lowp sampler2D tex;
uniform lowp float     disabled;
uniform lowp float     highlight;
uniform lowp vec4      highlightColor;
varying lowp vec2 coord;
const lowp float ONE = 1.0;
void main() {
    lowp vec4 base = texture2D(tex, coord);
    lowp vec3 col  = base.rgb / max(.001, base.a);
    lowp float luma = dot(col, vec3(0.2126, 0.7152, 0.0722));
    lowp float light = smoothstep(.85, .9, luma);
    col = mix(col, vec3(mix(.6, ONE, luma)), disabled);
    col = mix(col, highlightColor.rgb, highlight);
    lowp float alpha = base.a *
                       mix(ONE, ONE - light, highlight);
    gl_FragColor = vec4(col, ONE) * alpha * qt_Opacity;
}
