// Plays the slides of each message: one at a time, for as long as the presentation says.
"use strict";
document.documentElement.classList.add("scripted");

class Player {
  constructor(stage) {
    this.stage = stage;
    this.slides = [...stage.querySelectorAll(".slide")];
    this.controls = stage.querySelector(".controls");
    this.button = name => this.controls.querySelector(`[data-action=${name}]`);
    this.timer = 0;
    this.show(0);
    this.controls.addEventListener("click", event => this.act(event.target.dataset.action));
    stage.addEventListener("keydown", event => this.press(event));
  }

  get isPlaying() { return this.stage.dataset.state === "playing"; }

  show(index) {
    this.stopMedia();
    this.index = Math.min(Math.max(index, 0), this.slides.length - 1);
    this.left = Number(this.slides[this.index].dataset.duration); // milliseconds; less than 0 for no end
    this.hasEnded = false;
    for (const medium of this.media())
      medium.currentTime = 0;
    this.slides.forEach((slide, i) => slide.classList.toggle("current", i === this.index));
    this.controls.querySelector(".position").textContent = `${this.index + 1} of ${this.slides.length}`;
    this.disable(this.button("previous"), this.index === 0);
    this.disable(this.button("next"), this.index === this.slides.length - 1);
    if (this.isPlaying)
      this.playCurrent();
  }

  // A disabled button would lose the focus to the page.
  disable(button, isDisabled) {
    if (isDisabled && button === document.activeElement)
      this.stage.focus();
    button.disabled = isDisabled;
  }

  media() { return [...this.slides[this.index ?? 0].querySelectorAll("audio, video")]; }

  playCurrent() {
    for (const medium of this.media()) {
      if (!medium.ended)
        medium.play().catch(() => {}); // the browser does not play this kind, and shows that
    }
    this.started = performance.now();
    if (this.left >= 0)
      this.timer = setTimeout(() => this.advance(), this.left);
  }

  advance() {
    if (this.index + 1 < this.slides.length) {
      this.show(this.index + 1);
    } else {
      this.pause();
      this.hasEnded = true;
    }
  }

  stopMedia() {
    clearTimeout(this.timer);
    for (const medium of this.media())
      medium.pause();
  }

  play() {
    players.filter(player => player !== this && player.isPlaying).forEach(player => player.pause());
    this.stage.dataset.state = "playing";
    this.label();
    if (this.hasEnded)
      this.show(0);
    else
      this.playCurrent();
  }

  pause() {
    if (this.isPlaying && this.left >= 0)
      this.left = Math.max(this.left - (performance.now() - this.started), 0);
    this.stage.dataset.state = "paused";
    this.stopMedia();
    this.label();
  }

  label() {
    this.button("play").textContent = this.isPlaying ? "Pause" : "Play";
  }

  act(action) {
    if (action === "play")
      this.isPlaying ? this.pause() : this.play();
    else if (action === "previous")
      this.show(this.index - 1);
    else if (action === "next")
      this.show(this.index + 1);
    else if (action === "all")
      this.toggleAll();
  }

  toggleAll() {
    this.pause();
    const all = this.stage.classList.toggle("all");
    this.button("all").setAttribute("aria-pressed", String(all));
  }

  press(event) {
    const actions = {" ": "play", k: "play", ArrowLeft: "previous", ArrowRight: "next"};
    const isForBrowser = event.altKey || event.ctrlKey || event.metaKey
      || event.target.closest("audio, video, .whole")
      || (event.target.closest("button") && event.key === " ");
    if (isForBrowser || !(event.key in actions))
      return;
    event.preventDefault();
    this.act(actions[event.key]);
  }
}

const players = [...document.querySelectorAll(".stage")].map(stage => new Player(stage));
