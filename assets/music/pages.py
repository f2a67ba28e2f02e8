"""pages.py SOUNDS EVENTS…: pictures of how loud who plays when, and a page beside the sounds that plays them in a row."""
import html
import json
import pathlib
import sys

GENRES = ("jazz", "kids", "orchestral", "rock", "techno", "latin")
WIDTH, ROW, LEFT, TOP = 900, 22, 110, 40
FAINTEST, LOUDEST = -55.0, -15.0
INK = {"lead": "#b3401f", "rest": "#2f5d80", "text": "#222", "line": "#ccc"}


def text(x, y, words, anchor="start", weight="normal"):
    return (f'<text x="{x:.1f}" y="{y:.1f}" text-anchor="{anchor}" font-weight="{weight}" font-family="sans-serif" '
            f'font-size="12" fill="{INK["text"]}">{html.escape(words)}</text>')


def band(name, levels, y, seconds, colour):
    """One player: the higher the louder, second by second."""
    points = [f"{LEFT},{y + ROW - 3}"]
    for second, level in enumerate(levels[:int(seconds)]):
        height = max(min((level - FAINTEST) / (LOUDEST - FAINTEST), 1), 0) * (ROW - 5)
        for edge in (second, second + 1):
            points.append(f"{LEFT + edge / seconds * WIDTH:.1f},{y + ROW - 3 - height:.1f}")
    points.append(f"{LEFT + min(len(levels), int(seconds)) / seconds * WIDTH:.1f},{y + ROW - 3}")
    return text(LEFT - 8, y + ROW - 6, name, "end") + f'<polygon points="{" ".join(points)}" fill="{colour}"/>'


def sections(facts, bottom):
    drawn, begin = [], 0.0
    for name, end in facts["sections"]:
        x = LEFT + begin / facts["seconds"] * WIDTH
        drawn.append(f'<line x1="{x:.1f}" x2="{x:.1f}" y1="{TOP - 8}" y2="{bottom}" stroke="{INK["line"]}"/>')
        drawn.append(text(x + 3, TOP - 2, name))
        begin = end
    return "".join(drawn)


def picture(title, facts):
    """An SVG of one piece; who leads is red."""
    names = sorted(facts["course"], key=lambda name: name not in facts["leads"])
    height = TOP + ROW * len(names) + 8
    rows = [band(name, facts["course"][name], TOP + i * ROW, facts["seconds"],
                 INK["lead" if name in facts["leads"] else "rest"]) for i, name in enumerate(names)]
    heading = (f'{title}: {facts["seconds"]:.0f} s, {facts["loudness"]:.1f} LUFS, {facts["above 200 Hz"]:.1f} above '
               f'200 Hz, tune {facts["lead over rest"]:+.1f} LU, {facts["drum bars"]} different drum bars')
    return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{LEFT + WIDTH + 10}" height="{height}">'
            f'<rect width="100%" height="100%" fill="#fff"/>{text(8, 18, heading, weight="bold")}'
            f'{sections(facts, height - 8)}{"".join(rows)}</svg>')


def entry(genre, event, drawn):
    shown = f'<img src="pictures/{genre}-{event}.svg" alt="">' if drawn else ""
    return f'<h3>{event}</h3>{shown}<audio controls preload="none" src="{genre}/{event}.ogg"></audio>'


SCRIPT = """
const sounds = [...document.querySelectorAll("audio")];
sounds.forEach((sound, i) => sound.onended = () => sounds[i + 1] && sounds[i + 1].play());
sounds.forEach(sound => sound.onplay = () => {
    sounds.forEach(other => other === sound || other.pause());
    sound.scrollIntoView({block: "center"});
});
document.querySelector("button").onclick = () => sounds[0].play();
"""


def main(folder, *events):
    folder = pathlib.Path(folder)
    (folder / "pictures").mkdir(exist_ok=True)
    body = []
    for genre in GENRES:
        facts = json.loads((folder / f"{genre}.json").read_text())
        body.append(f"<h2>{genre}</h2>")
        for event in events:
            drawn = facts[event]["seconds"] > 20
            if drawn:
                (folder / "pictures" / f"{genre}-{event}.svg").write_text(picture(f"{genre} {event}", facts[event]))
            body.append(entry(genre, event, drawn))
    (folder / "music.html").write_text(
        '<!doctype html><meta charset="utf-8"><title>The music</title><style>body{font-family:sans-serif;margin:2em}'
        f'audio,img{{display:block}}</style><h1>The music</h1><button>Play all in a row</button>{"".join(body)}'
        f"<script>{SCRIPT}</script>")


if __name__ == "__main__":
    main(*sys.argv[1:])
