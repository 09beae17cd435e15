/*
 * Squares of a fixed size on the screen: the second colour where exactly one of the coordinates
 * lies in the second half of its period of two squares. The colours come multiplied with alpha.
 */
uniform lowp float ta_Opacity;
uniform int ta_TileSize;
uniform lowp vec4 ta_Color0;
uniform lowp vec4 ta_Color1;
varying highp vec2 v_PixelPos;
void main(void)
{
    lowp vec2 tile = step(float(ta_TileSize),
                          mod(v_PixelPos, float(ta_TileSize * 2)));
    lowp float dark = float(bool(tile.x) ^^ bool(tile.y));
    gl_FragColor = mix(ta_Color0, ta_Color1, dark) * ta_Opacity;
}
