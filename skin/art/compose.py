#!/usr/bin/env python3
"""Composes the two large drawings as SVG: the landscape behind the main window, launch_bg.svg,
and the greetings of the markets, right_bg_CODE.svg.

Ridges, woods and clouds are grown from fixed seeds, so that every run gives the same bytes.
The landscape leaves calm ground where the window lays its panels: the left half above y 640,
the lower left for white text, and the right column from y 486 down.
"""
import math
import pathlib
import random

HERE = pathlib.Path(__file__).resolve().parent
WIDTH, HEIGHT = 1642, 936
SUN = (1262, 318)


def points_to_path(points):
    return "M" + "L".join(f"{x:.1f} {y:.1f}" for x, y in points)


def ridge(seed, left, right, base, height, rough, steps=8):
    """A skyline from left to right by midpoint displacement; lower y is higher up."""
    rng = random.Random(seed)
    line = [(left, base - height * rng.random()), (right, base - height * rng.random())]
    spread = height
    for _ in range(steps):
        finer = []
        for (x0, y0), (x1, y1) in zip(line, line[1:]):
            finer += [(x0, y0), ((x0 + x1) / 2 + (x1 - x0) * rng.uniform(-.12, .12),
                                 (y0 + y1) / 2 + spread * rng.uniform(-.5, .5))]
        line = finer + [line[-1]]
        spread *= rough
    return line


def filled(line, fill, bottom=HEIGHT, extra=""):
    closed = points_to_path(line) + f"V{bottom}H{line[0][0]:.1f}z"
    return f'<path d="{closed}" fill="{fill}" {extra}/>'


def peak(seed, x, top, base, width, dark, lit, snow):
    """One mountain: its shadow side, the side towards the sun with broken edges, snow above."""
    rng = random.Random(seed)
    side = 1 if SUN[0] > x else -1

    def edge(x0, y0, x1, y1, jag, count):
        return [(x0 + (x1 - x0) * i / count + rng.uniform(-jag, jag) * (0 < i < count),
                 y0 + (y1 - y0) * i / count + rng.uniform(-jag, jag) * (0 < i < count)) for i in range(count + 1)]

    left = edge(x, top, x - width * .55, base, 7, 12)
    right = edge(x, top, x + width * .55, base, 7, 12)
    spine = edge(x, top, x - side * width * .10, base, 13, 9)
    lit_edge = right if side > 0 else left
    outline = points_to_path(left + right[::-1]) + "z"
    out = [f'<clipPath id="peak{seed}"><path d="{outline}"/></clipPath><path d="{outline}" fill="{dark}"/>',
           f'<path d="{points_to_path(lit_edge + spine[::-1])}z" fill="{lit}"/>']
    # Gullies on the lit side and a torn snow line on both.
    for _ in range(5):
        i = rng.randrange(2, 9)
        px, py = lit_edge[i]
        sx, sy = spine[min(i, len(spine) - 1)]
        t = rng.uniform(.25, .8)
        gx, gy = px + (sx - px) * t, py + (sy - py) * t
        out.append(f'<path d="M{gx:.1f} {gy:.1f}l{side * 6:.1f} {base * .03 + 26:.1f}'
                   f'l{-side * 13:.1f} {base * .02 + 8:.1f}z" fill="{dark}" opacity=".35"/>')
    cap = (base - top) * .34
    zig = []
    count = 9
    for i in range(count + 1):
        u = -1 + 2 * i / count
        zig.append((x + u * width * .55 * .40, top + cap * (1 - .12 * (i % 2)) - cap * (.38 if i % 2 and i < count else 0)
                    + rng.uniform(-4, 4)))
        out.append(f'<path d="M{x} {top}' + "".join(f"L{px:.1f} {py:.1f}" for px, py in zig) +
               f'z" fill="{snow}" opacity=".75" clip-path="url(#peak{seed})"/>')
    shade = [(px, py) for px, py in zig if (px - x) * side <= 0]
    if side < 0:
        shade = shade[::-1]
    out.append(f'<path d="M{x} {top}' + "".join(f"L{px:.1f} {py:.1f}" for px, py in shade) +
               f'L{x - side * 4:.1f} {top + cap * .7:.1f}z" fill="{dark}" opacity=".38" clip-path="url(#peak{seed})"/>')
    return "".join(out)


def pine(x, y, height, rng):
    """One fir, its foot at x, y."""
    width = height * .34
    tiers = 5
    left, right = [], []
    for i in range(tiers):
        top = y - height + height * i / tiers * .92
        w0, w1 = width * (i + .15) / tiers * .5, width * (i + 1.15) / tiers * .62
        low = top + height / tiers * 1.25
        left += [(x - w0, top), (x - w1 * rng.uniform(.85, 1.15), low)]
        right += [(x + w0, top), (x + w1 * rng.uniform(.85, 1.15), low)]
    return points_to_path([(x, y - height)] + left + [(x, y)] + right[::-1]) + "z"


def wood(seed, line, low, high, gap, fill):
    """Firs along a skyline, as one path."""
    rng = random.Random(seed)
    xs, out = line[0][0], []
    index = 0
    while xs < line[-1][0]:
        while index + 1 < len(line) and line[index + 1][0] < xs:
            index += 1
        tall = rng.uniform(low, high) * (1.25 if rng.random() < .12 else 1)
        out.append(pine(xs, line[index][1] + 8, tall, rng))
        xs += gap * rng.uniform(.45, 1.3)
    return f'<path d="{"".join(out)}" fill="{fill}"/>'


def cloud(seed, x, y, width, height, fill, opacity):
    """A bank of cumulus with a flat foot: puffs that are largest in the middle."""
    rng = random.Random(seed)
    puffs = []
    count = max(7, int(width / 22))
    for i in range(count):
        u = i / (count - 1)
        swell = math.sin(math.pi * u) ** .8
        r = height * (.16 + .34 * swell) * rng.uniform(.7, 1.15)
        px, py = x + width * u, y - r * .55 - height * .45 * swell * rng.random()
        puffs.append(f"M{px - r:.1f} {py:.1f}a{r:.1f} {r:.1f} 0 1 0 {2 * r:.1f} 0a{r:.1f} {r:.1f} 0 1 0 {-2 * r:.1f} 0z")
    return f'<path d="{"".join(puffs)}" fill="url(#{fill})" opacity="{opacity}"/>'


def rays():
    """Shafts of light that fan out of the sun."""
    rng = random.Random(41)
    out = []
    for _ in range(22):
        angle = rng.uniform(0, 2 * math.pi)
        spread = rng.uniform(.012, .05)
        far = rng.uniform(520, 1150)
        a = [(SUN[0] + far * math.cos(angle + s), SUN[1] + far * math.sin(angle + s)) for s in (-spread, spread)]
        out.append(f'<path d="M{SUN[0]} {SUN[1]}L{a[0][0]:.0f} {a[0][1]:.0f}L{a[1][0]:.0f} {a[1][1]:.0f}z" '
                   f'fill="url(#ray)" opacity="{rng.uniform(.25, .7):.2f}"/>')
    return "".join(out)


def rock(seed, cx, top, half, depth):
    """The underside of a floating island: a torn cone."""
    rng = random.Random(seed)
    line = []
    count = 14
    for i in range(count + 1):
        u = i / count
        deep = math.sin(math.pi * u) ** 1.5 * depth * (rng.uniform(.55, .8) if i % 2 else rng.uniform(.85, 1.05))
        line.append((cx - half + 2 * half * u, top + deep))
    return line


def island(seed, cx, top, half, depth, dark, lit, turf):
    rng = random.Random(seed)
    under = rock(seed, cx, top, half, depth)
    facets = "".join(
        f'<path d="M{under[i - 1][0]:.1f} {top}H{under[i + 1][0]:.1f}L{under[i][0]:.1f} {under[i][1]:.1f}z" '
        f'fill="{lit if rng.random() < .5 else dark}" opacity="{rng.uniform(.25, .6):.2f}"/>'
        for i in range(1, len(under) - 1))
    shape = points_to_path(under) + "z"
    return (f'<path d="{shape}" fill="{dark}"/>{facets}'
            f'<path d="M{cx - half - 3} {top + 1}q{half * .5} {-half * .13} {half + 3} {-half * .12}'
            f't{half + 3} {half * .12}q{-half * .4} {half * .10} {-half - 3} {half * .07}t{-half - 3} {-half * .07}z" '
            f'fill="{turf}"/>')


def tower(x, foot, width, height, roof, wall, lit, tile, tile_lit):
    """A round tower: wall, its lit edge, a pointed roof, windows that glow."""
    half = width / 2
    top = foot - height
    lit_left = x > SUN[0]
    edge = x - half if lit_left else x + half - width * .28
    out = [f'<path d="M{x - half:.1f} {foot}V{top}h{width}V{foot}z" fill="{wall}"/>',
           f'<path d="M{edge:.1f} {foot}V{top}h{width * .28:.1f}V{foot}z" fill="{lit}" opacity=".8"/>',
           f'<path d="M{x - half - width * .14:.1f} {top}h{width * 1.28:.1f}v{width * .22:.1f}h{-width * 1.28:.1f}z" fill="{wall}"/>',
           f'<path d="M{x} {top - roof}L{x + half * 1.35:.1f} {top}H{x - half * 1.35:.1f}z" fill="{tile}"/>']
    tip = x - half * 1.35 if lit_left else x + half * 1.35
    inner = x - half * .35 if lit_left else x + half * .35
    out.append(f'<path d="M{x} {top - roof}L{tip:.1f} {top}H{inner:.1f}z" fill="{tile_lit}" opacity=".85"/>')
    out.append(f'<path d="M{x - .7} {top - roof - width * .7:.1f}h1.4v{width * .8:.1f}h-1.4z" fill="{tile}"/>')
    w = max(1.6, width * .16)
    for i in range(max(1, int(height / 26))):
        wy = top + width * .45 + i * 25
        if wy + w * 2.4 < foot - 4:
            out.append(f'<path d="M{x - w / 2:.1f} {wy + w * 2.2:.1f}v{-w * 1.5:.1f}q{w / 2:.1f} {-w:.1f} {w:.1f} 0v{w * 1.5:.1f}z" fill="#ffdf95"/>')
    return "".join(out)


def citadel(cx, foot):
    """The city above the clouds, the sun behind its keep."""
    wall, lit, tile, tile_lit = "#46588f", "#f3c79b", "#2f3f76", "#e89a68"
    parts = []
    spec = [(-128, 6, 15, 42, 34), (128, 4, 15, 46, 36), (-100, 2, 20, 78, 50), (98, 0, 20, 88, 56),
            (-66, -2, 17, 116, 58), (66, -2, 18, 128, 62), (-36, 0, 25, 150, 82), (37, 0, 24, 140, 76),
            (0, 0, 33, 196, 118)]
    parts.append(f'<path d="M{cx - 146} {foot + 8}l8-34h10l4 10h22l4-22h14l6 12h30l6-26h84l6 26h30l6-12h14l4 22h22l4-10h10l8 34z" fill="#55679d"/>')
    for dx, dy, w, h, roof in spec:
        parts.append(tower(cx + dx, foot + dy, w, h, roof, wall, lit, tile, tile_lit))
    # Curtain wall with a gate, and bridges between the towers.
    parts.append(f'<path d="M{cx - 112} {foot + 8}v-30h6v-5h5v5h7v-5h5v5h160v-5h5v5h7v-5h5v5h6v30z" fill="#3d4e85"/>')
    parts.append(f'<path d="M{cx - 9} {foot + 8}v-16q9-14 18 0v16z" fill="#ffdf95"/>')
    for x0, x1, y in ((-66, -36, -92), (36, 66, -98), (-36, 0, -120), (0, 37, -112)):
        parts.append(f'<path d="M{cx + x0} {foot + y}q{(x1 - x0) / 2} 10 {x1 - x0} 0v4q{-(x1 - x0) / 2} 9 {x0 - x1} 0z" fill="#3d4e85"/>')
    for dx, y, flip in ((-36, -236, 1), (37, -220, 1), (0, -320, 1), (98, -148, 1), (-100, -134, 1)):
        parts.append(f'<path d="M{cx + dx} {foot + y}q9-5 16 0t14-1l-4 6 4 5q-8 3-15 0t-15 1z" fill="#e2561c"/>')
    return "".join(parts)


def waterfall(x, y, width, height):
    return (f'<path d="M{x} {y}q{width * .5} -3 {width} 0l{width * .25} {height}h{-width * 1.5}z" fill="url(#fall)"/>'
            f'<path d="M{x + width * .3:.1f} {y}l{-width * .1:.1f} {height * .8:.1f}" stroke="#fff" stroke-opacity=".6" stroke-width="1"/>')


BIRD = ("M0 0c10-8 24-10 34-6 6-14 20-26 40-30-6 6-9 11-9 15 8-5 17-7 26-6-8 5-13 9-15 14 9-2 18-1 27 3-12 2-20 6-26 11"
          "-8 6-17 9-27 9 2 6 8 11 18 13 10 1 19-1 27-6-4 9-13 14-25 14-3 4-8 6-14 6 2-3 3-5 2-7-14-2-25-8-31-17-6 1-12 5-17 11"
          "-1-3-1-6 0-9-5 2-9 5-12 9-1-5 0-9 2-12-7 2-12 1-16-2 2-1 4-2 5-4-6 0-10-2-12-5 8 1 16 0 23-1z"
          "M34-6c-4-18 0-36 12-54 1 6 3 11 6 15 2-6 6-11 11-15-1 7 0 12 2 17 4-4 9-6 15-7-6 5-9 11-10 18-14 4-26 12-36 26z")


def hero():
    """A traveller on the rock, seen from behind: cloak in the wind, blade at rest, the sun on one side.
    Local pixels, feet at 0,0, 190 high."""
    return """
  <g>
    <path d="M-8-128c-26 14-46 44-92 58 10 4 18 4 26 2-10 10-24 16-42 18 16 8 34 8 50 2-6 10-14 18-24 24 26 2 48-8 62-22l26-30z" fill="#7a2413"/>
    <path d="M-10-124c-22 18-42 46-76 62 14-1 24-6 32-12-8 14-20 22-34 30 20 0 36-10 48-24l26-30z" fill="#a83a1c"/>
    <path d="M-8-124c-14 18-26 38-46 54 16-6 28-16 38-28z" fill="#d65a2a" opacity=".8"/>
    <path d="M-17-4c-4-20-4-44 1-62l16-2 15 4c4 18 6 40 6 60l3 5H8l1-8c-1-16-3-32-7-44-4 12-7 28-8 44l1 8h-17z" fill="#141f3a"/>
    <path d="M13-64c4 18 6 40 6 60l3 5H14c1-22 0-44-4-64z" fill="#f0a35c" opacity=".55"/>
    <path d="M-20-62c-3-22-2-44 4-62 6-6 26-6 33 0 6 18 8 40 5 62-12 6-30 6-42 0z" fill="#1c2a4d"/>
    <path d="M-21-66c13 6 31 6 43 0l1 7c-13 6-32 6-45 0z" fill="#8c5a2b"/>
    <path d="M12-127c6 16 9 40 8 64l-6 2c2-24 0-46-5-65z" fill="#f3b877" opacity=".8"/>
    <path d="M-26-112c-4-10 2-20 14-20 4 8 2 18-4 24zM27-112c4-10-2-20-14-20-4 8-2 18 4 24z" fill="#2c3e6b"/>
    <path d="M28-116c1-9-4-16-15-16 6 3 10 8 11 18z" fill="#ffd9a0"/>
    <path d="M22-114c8 12 14 26 16 42l-8 4c-5-14-11-26-17-36z" fill="#1c2a4d"/>
    <path d="M26-110c6 10 10 22 12 38l-4 2c-3-14-7-26-12-36z" fill="#f0a35c" opacity=".8"/>
    <path d="M-24-112c-8 12-10 26-8 42l9 2c0-14 3-26 8-36z" fill="#18244a"/>
    <path d="M-13-142c-2-14 4-24 14-24s15 9 13 23c-2 9-7 14-14 14s-12-5-13-13z" fill="#2a1c22"/>
    <path d="M-11-148c-6 10-16 16-28 18 4 2 8 3 12 2-4 4-8 6-13 7 12 3 22-1 30-10l8-12z" fill="#2a1c22"/>
    <path d="M4-166c8 3 12 12 10 23-1 5-3 9-6 11 2-10 2-22-4-34z" fill="#f0a35c" opacity=".9"/>
    <path d="M-10-130c6 4 14 4 22 0l2 6c-8 4-18 4-26 0z" fill="#a83a1c"/>
    <!-- The blade, point down on the rock. -->
    <path d="M35-76h4l2 6-1 68-3 8-3-8-1-68z" fill="#dff0ff"/>
    <path d="M37-76h2l2 6-1 68-3 8z" fill="#ffe9bd"/>
    <path d="M26-79q11-4 22 0v4q-11-3-22 0z" fill="#d9a441"/>
    <path d="M35.500-94h3v16h-3z" fill="#5b3a20"/><circle cx="37" cy="-96" r="3" fill="#ffc15a"/>
  </g>"""


def motes(seed, count, box, low, high, fill):
    rng = random.Random(seed)
    return "".join(f'<circle cx="{rng.uniform(box[0], box[2]):.1f}" cy="{rng.uniform(box[1], box[3]):.1f}" '
                   f'r="{rng.uniform(low, high):.2f}" fill="{fill}" opacity="{rng.uniform(.25, .9):.2f}"/>' for _ in range(count))


DEFS = f"""
  <defs>
    <linearGradient id="sky" x2="0" y2="1"><stop stop-color="#2459b4"/><stop offset=".22" stop-color="#4a8be2"/><stop offset=".42" stop-color="#93c2f6"/><stop offset=".56" stop-color="#ffe3b8"/><stop offset=".66" stop-color="#ffc184"/><stop offset="1" stop-color="#f09a66"/></linearGradient>
    <radialGradient id="dawn" gradientUnits="userSpaceOnUse" cx="{SUN[0]}" cy="{SUN[1]}" r="760"><stop stop-color="#fffbe8"/><stop offset=".10" stop-color="#fff0c4" stop-opacity=".95"/><stop offset=".26" stop-color="#ffe9c4" stop-opacity=".66"/><stop offset=".5" stop-color="#f3e6f2" stop-opacity=".34"/><stop offset="1" stop-color="#d8e6ff" stop-opacity="0"/></radialGradient>
    <linearGradient id="phoenix" x2="1" y2="1"><stop stop-color="#ffe9a8"/><stop offset=".5" stop-color="#ff9a3c"/><stop offset="1" stop-color="#d8431a"/></linearGradient>
    <radialGradient id="ray" gradientUnits="userSpaceOnUse" cx="{SUN[0]}" cy="{SUN[1]}" r="1000"><stop stop-color="#fff6d8" stop-opacity=".0"/><stop offset=".12" stop-color="#fff3cf" stop-opacity=".34"/><stop offset="1" stop-color="#ffe3b0" stop-opacity="0"/></radialGradient>
    <linearGradient id="cloudHigh" x2="0" y2="1"><stop stop-color="#ffffff"/><stop offset=".6" stop-color="#e3efff" stop-opacity=".7"/><stop offset=".86" stop-color="#bcd8fb" stop-opacity="0"/></linearGradient>
    <linearGradient id="cloudWarm" x2="0" y2="1"><stop stop-color="#fff8ea"/><stop offset=".5" stop-color="#ffe0b8" stop-opacity=".9"/><stop offset="1" stop-color="#f6b98e" stop-opacity="0"/></linearGradient>
    <linearGradient id="cloudShade" x2="0" y2="1"><stop stop-color="#f7d3b6"/><stop offset=".5" stop-color="#b6a7cf" stop-opacity=".8"/><stop offset="1" stop-color="#8193c4" stop-opacity="0"/></linearGradient>
    <linearGradient id="mist" x2="0" y2="1"><stop stop-color="#ffe6c4" stop-opacity="0"/><stop offset="1" stop-color="#ffe0bb" stop-opacity=".62"/></linearGradient>
    <linearGradient id="mistBlue" x2="0" y2="1"><stop stop-color="#b9d0f5" stop-opacity="0"/><stop offset="1" stop-color="#a3bdea" stop-opacity=".55"/></linearGradient>
    <linearGradient id="fall" x2="0" y2="1"><stop stop-color="#ffffff" stop-opacity=".95"/><stop offset=".5" stop-color="#eaf4ff" stop-opacity=".6"/><stop offset="1" stop-color="#eaf4ff" stop-opacity="0"/></linearGradient>
    <linearGradient id="lake" x2="0" y2="1"><stop stop-color="#ffdcab"/><stop offset=".5" stop-color="#c8b7d0"/><stop offset="1" stop-color="#4c6cae"/></linearGradient>
    <linearGradient id="cliff" x2="0" y2="1"><stop stop-color="#33466f"/><stop offset=".35" stop-color="#1c2b50"/><stop offset="1" stop-color="#0b1630"/></linearGradient>
    <linearGradient id="ground" x2="0" y2="1"><stop stop-color="#1b305c"/><stop offset="1" stop-color="#0a152c"/></linearGradient>
    <linearGradient id="foot" x2="0" y2="1"><stop stop-color="#081328" stop-opacity="0"/><stop offset=".55" stop-color="#081328" stop-opacity=".78"/><stop offset="1" stop-color="#081328" stop-opacity=".94"/></linearGradient>
    <linearGradient id="top" x2="0" y2="1"><stop stop-color="#163c86" stop-opacity=".55"/><stop offset="1" stop-color="#163c86" stop-opacity="0"/></linearGradient>
    <radialGradient id="glow"><stop stop-color="#fff3d0" stop-opacity=".95"/><stop offset=".4" stop-color="#ffd486" stop-opacity=".45"/><stop offset="1" stop-color="#ffb54a" stop-opacity="0"/></radialGradient>
    <filter id="soft"><feGaussianBlur stdDeviation="2.2"/></filter>
    <filter id="softer"><feGaussianBlur stdDeviation="9"/></filter>
  </defs>"""


def band(y, height, fill):
    return f'<path d="M0 {y}h{WIDTH}v{height}H0z" fill="url(#{fill})"/>'


def cliff():
    """The rock that the traveller stands on, between the panels."""
    edge = [(716, 936), (748, 858), (786, 812), (800, 772), (836, 744), (852, 700), (884, 676), (900, 650), (930, 642),
            (958, 636), (992, 634), (1024, 640), (1046, 650), (1040, 672), (1062, 690), (1058, 716), (1094, 742),
            (1102, 786), (1140, 820), (1160, 872), (1204, 936)]
    faces = [([(1024, 640), (1046, 650), (1040, 672), (1062, 690), (1058, 716), (1030, 730), (1012, 690), (1016, 660)], "#8a6a63", .75),
             ([(1062, 690), (1058, 716), (1094, 742), (1102, 786), (1066, 800), (1046, 752), (1030, 730)], "#5d5266", .7),
             ([(1102, 786), (1140, 820), (1160, 872), (1120, 900), (1084, 846), (1066, 800)], "#3a3d5c", .7),
             ([(930, 642), (992, 634), (1024, 640), (1016, 652), (960, 656), (920, 656)], "#c78f6a", .8),
             ([(900, 650), (930, 642), (920, 656), (936, 700), (904, 740), (880, 704), (884, 676)], "#25365f", .9),
             ([(836, 744), (852, 700), (880, 704), (904, 740), (890, 800), (850, 820), (820, 790)], "#1d2c52", .9),
             ([(936, 700), (980, 676), (1012, 690), (1030, 730), (1000, 790), (950, 780)], "#2d3c66", .6)]
    out = f'<path d="{points_to_path(edge)}z" fill="url(#cliff)"/>'
    for points, fill, opacity in faces:
        out += f'<path d="{points_to_path(points)}z" fill="{fill}" opacity="{opacity}"/>'
    rng = random.Random(5)
    blades = ""
    for i in range(46):
        x = 890 + i * 3.3 + rng.uniform(-1, 1)
        blades += f"M{x:.1f} 645l{rng.uniform(-6, 1):.1f} {-rng.uniform(5, 13):.1f} {rng.uniform(2, 3):.1f} {rng.uniform(6, 12):.1f}z"
    return out + f'<path d="{blades}" fill="#4c4a3d"/>'


def rising(line):
    """The skyline coming up out of the ground at its left end."""
    left, right = line[0][0], line[-1][0]
    return [(x, y + 90 * max(0, 1 - (x - left) / (right - left) * 2) ** 2) for x, y in line]


def landscape():
    far = ridge(11, -20, WIDTH + 20, 560, 70, .52)
    mid = ridge(23, -20, WIDTH + 20, 628, 86, .52)
    knoll = ridge(29, -20, WIDTH + 20, 668, 64, .50)
    near = ridge(37, -20, WIDTH + 20, 716, 70, .50)
    shore = ridge(53, -20, WIDTH + 20, 786, 46, .50)
    front = ridge(71, -20, WIDTH + 20, 872, 40, .50)
    parts = [
        DEFS,
        f'<rect width="{WIDTH}" height="{HEIGHT}" fill="url(#sky)"/>',
        band(0, 220, "top"),
        motes(3, 70, (0, 0, WIDTH, 150), .4, 1.1, "#ffffff"),
        f'<rect width="{WIDTH}" height="{HEIGHT}" fill="url(#dawn)"/>',
        f'<g filter="url(#softer)">{rays()}</g>',
        f'<circle cx="{SUN[0]}" cy="{SUN[1]}" r="104" fill="url(#glow)"/><circle cx="{SUN[0]}" cy="{SUN[1]}" r="58" fill="#fffdf2"/>',
        f'<g filter="url(#soft)">{cloud(2, -60, 210, 520, 120, "cloudHigh", .75)}{cloud(4, 330, 130, 460, 90, "cloudHigh", .65)}'
        f'{cloud(8, 760, 250, 260, 76, "cloudHigh", .8)}{cloud(9, 1440, 150, 300, 90, "cloudHigh", .8)}</g>',
        cloud(12, -80, 470, 560, 150, "cloudWarm", .85), cloud(13, 420, 500, 480, 150, "cloudWarm", .9),
        cloud(14, 800, 505, 300, 130, "cloudWarm", .95), cloud(15, 1400, 470, 330, 160, "cloudWarm", .95),
        # Far range in the light, then the high peaks.
        filled(far, "#a9b7de"), band(500, 90, "mist"),
        peak(101, 150, 318, 640, 420, "#7790c6", "#c3bfd9", "#fff6ea"),
        peak(102, 430, 372, 640, 360, "#7e96ca", "#cbc3d8", "#fff6ea"),
        peak(103, 700, 336, 650, 430, "#7089c2", "#cdb9c8", "#fff3e2"),
        peak(104, 915, 388, 650, 330, "#7990c5", "#dcbfc0", "#fff3e2"),
        peak(105, 1545, 326, 650, 380, "#7087c0", "#dfbfb8", "#fff3e2"),
        band(520, 120, "mist"),
        # The city.
        f'<ellipse cx="{SUN[0]}" cy="330" rx="230" ry="190" fill="url(#glow)" opacity=".55"/>',
        cloud(21, 1070, 420, 400, 92, "cloudWarm", .9),
        waterfall(1126, 372, 12, 150), waterfall(1364, 370, 15, 170), waterfall(1226, 384, 9, 160),
        island(201, 1256, 366, 176, 152, "#3a4a82", "#b88a86", "#5c7a86"),
        citadel(1256, 352),
        f'<g filter="url(#soft)">{cloud(22, 1040, 470, 240, 60, "cloudHigh", .9)}{cloud(23, 1270, 486, 250, 66, "cloudHigh", .9)}</g>',
        island(202, 1480, 246, 46, 54, "#4d5f97", "#c79c90", "#6d8a90"), tower(1470, 242, 9, 34, 22, "#4d5f97", "#f3c79b", "#38497f", "#e89a68"),
        f'<path d="{pine(1492, 243, 26, random.Random(1))}{pine(1502, 245, 19, random.Random(2))}" fill="#3b5a70"/>',
        island(203, 1062, 232, 30, 34, "#5a6ca3", "#cfa494", "#7a949a"),
        f'<path d="{pine(1056, 230, 22, random.Random(3))}{pine(1067, 231, 16, random.Random(4))}" fill="#486780"/>',
        island(204, 1560, 398, 28, 36, "#5a6ca3", "#cfa494", "#7a949a"),
        f'<g transform="translate(900 168) scale(.98) rotate(-8)"><ellipse cx="60" cy="-8" rx="86" ry="60" fill="url(#glow)" opacity=".55"/><path d="{BIRD}" fill="url(#phoenix)" stroke="#8a2c0c" stroke-width=".8"/></g>',
        f'<g transform="translate(1420 118) scale(-.42 .42)" fill="#c2703f"><path d="{BIRD}"/></g>',
        f'<path d="M1010 90q5-6 10 0 5-6 10 0-6-2-10 3-4-5-10-3zM1036 104q4-5 8 0 4-5 8 0-5-2-8 2-3-4-8-2zM990 112q4-5 8 0 4-5 8 0-5-2-8 2-3-4-8-2z" fill="#3f5490"/>',
        # Hills, the lake, woods.
        filled(mid, "#6c80b6"), wood(61, mid, 12, 24, 9, "#6579b0"), band(580, 90, "mist"),
        filled(knoll, "#5a70aa"), wood(67, knoll, 16, 34, 10, "#526aa5"), band(600, 100, "mist"),
        f'<path d="M640 690Q900 652 1010 668T1480 676Q1300 700 1642 742V800H420Q560 730 640 690z" fill="url(#lake)"/>',
        "".join(f'<path d="M{1262 - w / 2} {y}h{w}v1.600h{-w}z" fill="#fff6dc" opacity="{o}"/>' for w, y, o in
                ((120, 674, .9), (170, 682, .75), (96, 690, .8), (210, 699, .55), (130, 709, .6), (240, 720, .4), (150, 731, .4))),
        filled(near[: len(near) * 45 // 100], "#3f5a96"), wood(62, near[: len(near) * 45 // 100], 24, 48, 12, "#385289"),
        filled(rising(near[len(near) * 80 // 100:]), "#46588f"), wood(63, rising(near[len(near) * 80 // 100:]), 24, 46, 12, "#3f5187"),
        band(650, 130, "mistBlue"),
        filled(shore, "#243c70"), wood(64, shore, 42, 78, 16, "#213768"),
        band(740, 120, "mistBlue"),
        filled(front, "url(#ground)"), wood(65, front, 64, 118, 24, "#13224a"),
        cliff(),
        f'<ellipse cx="1004" cy="560" rx="90" ry="110" fill="url(#glow)" opacity=".34"/>',
        f'<g transform="translate(968 642) scale(1.06)">{hero()}</g>',
        wood(66, [(x, 948 + 10 * math.sin(x / 90)) for x in range(-20, WIDTH + 20, 10)], 60, 130, 34, "#0b1730"),
        band(700, 236, "foot"),
        motes(31, 46, (800, 380, 1160, 760), .7, 2.1, "#ffd486"), motes(32, 40, (1130, 420, 1642, 900), .6, 1.8, "#ffd486"),
        motes(33, 30, (0, 660, 800, 930), .6, 1.6, "#ffd486"),
    ]
    return f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {HEIGHT}">' + "\n".join(parts) + "</svg>\n"


GREETINGS = {  # the market's code: font, headline, its size, second line, its size, ornament
    "cn": ("Noto Serif CJK SC", "欢迎，勇者", 60, "天空之城，等你启程", 23, "clouds"),
    "tw": ("Noto Serif CJK TC", "歡迎，勇者", 60, "天空之城，等你啟程", 23, "clouds"),
    "kr": ("Noto Serif CJK KR", "용사여, 환영합니다", 45, "하늘 도시가 당신을 기다립니다", 20, "moon"),
    "en": ("Noto Serif Display", "Welcome, Hero", 47, "The city above the clouds awaits", 20, "shield"),
    "id": ("Noto Serif Display", "Selamat Datang", 46, "Kota di atas awan menantimu", 20, "batik"),
    "vn": ("Noto Serif", "Chào mừng anh hùng", 36, "Thành phố trên mây đang chờ bạn", 20, "lotus"),
    "th": ("Noto Serif Thai", "ยินดีต้อนรับ ผู้กล้า", 43, "นครเหนือเมฆรอคุณอยู่", 22, "spires"),
}


def swirl(x, y, size, flip=1):
    return (f'<path transform="translate({x} {y}) scale({flip * size} {size})" fill="none" stroke-width="2.4" '
            f'd="M0 0h46a9 9 0 1 0-9-9M-20 10h54a8 8 0 1 1-8 8M14 0a14 14 0 1 1 14-14"/>')


def ornament(kind):
    """The market's sign, faint, behind the words."""
    if kind == "clouds":
        marks = swirl(48, 72, 1.1) + swirl(392, 84, 1.1, -1) + swirl(40, 172, .8) + swirl(400, 180, .8, -1)
    elif kind == "moon":
        marks = ('<circle cx="346" cy="76" r="40" fill="#ffe3b0" stroke="none" opacity=".5"/>'
                 '<path fill="#ffe3b0" stroke="none" opacity=".5" d="M24 216l60-78 26 32 30-44 58 90z"/>' + swirl(300, 92, .8))
    elif kind == "shield":
        marks = "".join(f'<path transform="translate(220 128) scale({k})" fill="#ffe3b0" fill-opacity=".10" stroke-width="2" '
                        f'd="M0-96q36 20 84 18 8 110-84 170-92-60-84-170 48 2 84-18z"/>' for k in (1, .86))
    elif kind == "batik":
        marks = "".join(f'<path fill="none" stroke-width="1.8" d="M{x} {y}q18-18 36 0-18 18-36 0zM{x + 18} {y - 18}q18 18 0 36-18-18 0-36z"/>'
                        for y in (30, 66, 102, 138, 174, 210) for x in (14, 50, 354, 390)
                        if not (x in (50, 354) and 80 < y < 200))
    elif kind == "lotus":
        marks = "".join(f'<path transform="translate(220 208) rotate({a})" fill="#ffe3b0" fill-opacity=".16" stroke-width="1.8" '
                        f'd="M0 0q-30-50 0-{h} 30 {h - 50} 0 {h}z"/>' for a, h in
                        ((-78, 150), (78, 150), (-54, 140), (54, 140), (-28, 132), (28, 132), (0, 128)))
    else:
        marks = "".join(f'<path fill="#ffe3b0" fill-opacity=".20" stroke-width="1.6" transform="translate({x} 216) scale({k})" '
                        f'd="M-26 0v-18h6v-14h5v-14q10-12 13-40l2-40 2 40q3 28 13 40v14h5v14h6V0z"/>'
                        for x, k in ((60, .9), (116, 1.15), (324, 1.15), (380, .9), (220, 1.45)))
    return f'<g stroke="#ffe3b0" opacity=".34">{marks}</g>'


def greeting(face, headline, size, line, small, kind):
    """A card for the right column: dark glass with a gold edge, the bird of the house above the words."""
    return f"""<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 440 240">
  <defs>
    <linearGradient id="glass" x2="0" y2="1"><stop stop-color="#1c3566" stop-opacity=".80"/><stop offset="1" stop-color="#0b1833" stop-opacity=".90"/></linearGradient>
    <linearGradient id="gold" x2="0" y2="1"><stop stop-color="#fff6dc"/><stop offset=".55" stop-color="#ffd27a"/><stop offset="1" stop-color="#f0983a"/></linearGradient>
    <linearGradient id="rim" x2="1" y2="1"><stop stop-color="#ffe9bd"/><stop offset=".5" stop-color="#b8793a"/><stop offset="1" stop-color="#ffd27a"/></linearGradient>
    <radialGradient id="warm" cx=".5" cy=".2" r=".7"><stop stop-color="#ffb54a" stop-opacity=".34"/><stop offset="1" stop-color="#ffb54a" stop-opacity="0"/></radialGradient>
    <clipPath id="in"><rect x="2" y="2" width="436" height="236" rx="5"/></clipPath>
    <filter id="shade" x="-10%" y="-30%" width="120%" height="170%"><feGaussianBlur in="SourceAlpha" stdDeviation="3"/><feOffset dy="2"/><feMerge><feMergeNode/><feMergeNode in="SourceGraphic"/></feMerge></filter>
  </defs>
  <rect x=".5" y=".5" width="439" height="239" rx="6" fill="url(#glass)" stroke="url(#rim)"/>
  <rect width="440" height="240" rx="6" fill="url(#warm)"/>
  <g clip-path="url(#in)">{ornament(kind)}</g>
  <rect x="6.500" y="6.500" width="427" height="227" rx="4" fill="none" stroke="#ffd27a" stroke-opacity=".35"/>
  <g filter="url(#shade)">
    <g transform="translate(196 20) scale(1.45)" fill="url(#gold)"><path d="M16.500 29 12 18.500 2 6.500l10.500 5.500L16.500 21z"/><path d="M16.500 29 21 18.500 31 6.500 20.500 12 16.500 21z"/><path d="M16.500 8.500l2.200 3.400-2.200 4.200-2.200-4.200z"/></g>
    <text x="220" y="{138 + (size - 46) // 3}" font-family="{face}" font-weight="bold" font-size="{size}" text-anchor="middle" fill="url(#gold)">{headline}</text>
    <text x="220" y="200" font-family="{face}" font-size="{small}" text-anchor="middle" fill="#eaf2ff">{line}</text>
  </g>
  <path d="M110 164h92l4 1.500-4 1.500h-92l-4-1.500zM238 164h92l4 1.500-4 1.500h-92l-4-1.500zM214 165.500l6-4 6 4-6 4z" fill="url(#gold)"/>
</svg>
"""


def main():
    (HERE / "launch_bg.svg").write_text(landscape())
    for code, words in GREETINGS.items():
        (HERE / f"right_bg_{code}.svg").write_text(greeting(*words))


main()
