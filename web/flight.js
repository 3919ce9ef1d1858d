// The last animation's frames (state `flight`): the bar under the view with the scrubber, which
// shows a frame of the run instead of the live view, Live, which goes back to it, and the Path
// switch, which draws the run's camera path over every picture. The host draws what they ask for;
// the bar only shows the state and sends the person's moves (docs/studio.md, "The last run").

export function showFlight(studio, connection) {
    const bar = document.getElementById('flight-bar');
    const scrubber = document.getElementById('scrubber');
    const shown = document.getElementById('scrub-frame');
    const live = document.getElementById('live-button');
    const path = document.getElementById('path-toggle');
    // The frame the slider asks for, sent at most once per animation frame: a fast slider does
    // not queue work on the host, and the host draws only the latest anyway.
    let wanted = null;

    const describe = (frame, frames) => (frame === null ? 'Live' : `Frame ${frame} of ${frames - 1}`);

    scrubber.addEventListener('input', () => {
        const flight = studio.state.flight;
        if (!flight) return;
        const first = wanted === null;
        wanted = Number(scrubber.value);
        shown.textContent = describe(wanted, flight.frames);
        if (!first) return;
        requestAnimationFrame(() => {
            connection.send({ type: 'scrub', frame: wanted });
            wanted = null;
        });
    });
    live.addEventListener('click', () => connection.send({ type: 'live' }));
    path.addEventListener('click', (event) => {
        event.preventDefault();
        connection.send({ type: 'path', show: !studio.state.flight?.path });
    });

    connection.onState((changed) => {
        if (!changed.has('flight') && !changed.has('busy')) return;
        const flight = studio.state.flight;
        const frames = flight?.frames || 0;
        bar.hidden = frames === 0 || flight.running;
        if (bar.hidden) return;
        scrubber.max = String(frames - 1);
        const frame = flight.frame ?? null;
        bar.dataset.frame = frame === null ? 'live' : String(frame);
        if (frame !== null && wanted === null) scrubber.value = String(frame);
        if (wanted === null) shown.textContent = describe(frame, frames);
        live.disabled = frame === null;
        path.checked = !!flight.path;
        // While the host works, what the bar asks for would be refused.
        scrubber.disabled = !!studio.state.busy;
    });
}
