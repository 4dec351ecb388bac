#pragma once

// A small vocabulary in the layout of syntax_mugen.xml: enough of each kind
// of entry for the checker's tests, with versions and deprecations chosen so
// that every rule is exercised.
inline const char* syntaxFixture()
{
    return R"xml(<?xml version="1.0" encoding="UTF-8"?>
<syntax>
  <consts>
    <const name="velocity.walk.fwd.x"/>
    <const name="data.life"/>
  </consts>
  <state_controller name="*">
    <param name="type" type="value"/>
    <param name="triggerall" type="exp"/>
    <param name="triggerN" type="exp" format="regexp" fmt_reg_exp="trigger[0-9]+"/>
    <param name="persistent" type="int"/>
    <param name="ignorehitpause" type="int"/>
  </state_controller>
  <state_controller name="ChangeState">
    <param name="value" type="exp"/>
    <param name="ctrl" type="exp"/>
    <param name="anim" type="strexp" reg_exp="f"/>
  </state_controller>
  <state_controller name="VelSet">
    <param name="x" type="exp"/>
    <param name="y" type="exp"/>
    <param name="pair" type="int2"/>
    <param name="both" type="exp2"/>
    <param name="flag" type="string" reg_exp="[sca]+\s*,\s*[nsh][ap]"/>
    <param name="space" type="value" reg_exp="screen|stage" minver="1.1"/>
    <param name="postype" type="value" reg_exp="p1|p2|front|back" deprecated="1.1 (use space instead)"/>
    <param name="count" type="intn" max="3"/>
    <param name="scale" type="float2opt"/>
  </state_controller>
  <state_controller name="VarSet">
    <param name="var" type="exp" format="func"/>
    <param name="v" type="exp"/>
    <param name="value" type="exp"/>
  </state_controller>
  <state_controller name="MakeDust" deprecated="1.0 (use Explod instead)">
    <param name="pos" type="int2"/>
  </state_controller>
  <state_controller name="Null">
    <param name="any" type="string" format="regexp" fmt_reg_exp="[a-z0-9_.]+"/>
  </state_controller>
  <state_controller name="ScreenBound" minver="1.0"/>
  <bg_control name="*">
    <param name="type" type="value" reg_exp="normal|anim|parallax|dummy"/>
    <param name="spriteno" type="int2"/>
    <param name="start" type="float2opt"/>
  </bg_control>
  <bg_control name="normal"/>
  <bg_control name="parallax">
    <param name="xscale" type="float2"/>
  </bg_control>
  <bg_controller name="*">
    <param name="type" type="value"/>
    <param name="time" type="intn" max="3"/>
  </bg_controller>
  <bg_controller name="VelSet">
    <param name="x" type="float"/>
  </bg_controller>
  <fnt_def>
    <param name="type" type="value" reg_exp="bitmap|truetype"/>
    <param name="size" type="int2"/>
  </fnt_def>
  <trigger name="Time" type="value"/>
  <trigger name="Alive" type="value"/>
  <trigger name="Ctrl" type="value"/>
  <trigger name="StateNo" type="value"/>
  <trigger name="Var" type="exp"/>
  <trigger name="IfElse" type="exp3"/>
  <trigger name="Cond" type="exp3" minver="1.0"/>
  <trigger name="ScreenWidth" type="value" minver="1.1"/>
  <trigger name="Const" type="strexp"/>
  <trigger name="GetHitVar" type="strexp" reg_exp="xvel|yvel|fall\.yvel"/>
  <trigger name="Pos" type="value" reg_exp="x|y"/>
  <trigger name="Vel" type="value" reg_exp="x|y"/>
  <trigger name="Command" type="string"/>
  <trigger name="AnimElem" type="int2"/>
  <trigger name="StateType" type="expstr" reg_exp="s|c|a|l"/>
  <trigger name="HitDefAttr" type="expstr" reg_exp="[sca]*\s*(,\s*[ansh][atp]\s*)*"/>
  <trigger name="NumHelper" type="exp2opt"/>
  <trigger name="ProjHit" type="int2" format="regexp" fmt_reg_exp="projhit[0-9]*"/>
  <trigger name="TimeMod" type="int2" deprecated="1.0 (use Time % n)"/>
  <files>
    <param name="cmd" type="string"/>
    <param name="st" type="string" format="regexp" fmt_reg_exp="st[0-9]?"/>
  </files>
  <arcade><param name="intro.storyboard" type="string"/></arcade>
  <data><param name="life" type="int"/></data>
  <size><param name="xscale" type="float"/><param name="ground.front" type="int"/></size>
  <velocity><param name="walk.fwd" type="float2opt"/></velocity>
  <movement><param name="yaccel" type="float"/></movement>
  <camera><param name="startx" type="int"/></camera>
  <playerinfo><param name="p1startx" type="int"/></playerinfo>
  <bound><param name="screenleft" type="int"/></bound>
  <scaling><param name="topz" type="int"/></scaling>
  <stageinfo><param name="zoffset" type="int"/></stageinfo>
  <shadow><param name="intensity" type="int"/></shadow>
  <reflection><param name="intensity" type="int"/></reflection>
  <music><param name="bgmusic" type="string"/></music>
  <bgdef><param name="spr" type="string"/></bgdef>
  <bg_control_def><param name="looptime" type="int"/></bg_control_def>
  <fnt><param name="name" type="string"/></fnt>
  <scene_def><param name="spr" type="string"/></scene_def>
  <scene><param name="layerN.anim" type="int" format="regexp" fmt_reg_exp="layer[0-9]+\.anim"/></scene>
</syntax>
)xml";
}
